#include "base/UserDefaults.h"

#include "base/Logger.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QStandardPaths>

#include <utility>

namespace vantro {

namespace {

const QString versionKey = QStringLiteral("settingsVersion");

QHash<QString, QVariant> contents(const QSettings& settings)
{
    QHash<QString, QVariant> values;
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys)
        values.insert(key, settings.value(key));
    return values;
}

/// Compares as text, because values keep their type until they are read back from the file.
bool isSame(const QVariant& one, const QVariant& other)
{
    return one.toStringList() == other.toStringList() && one.toString() == other.toString();
}

} // namespace

UserDefaults::UserDefaults(const QString& path)
    : keptAside_(keepAsideIfUnusable(path))
    , settings_(path, QSettings::IniFormat)
    , known_(contents(settings_))
{
}

UserDefaults::~UserDefaults() = default;

QString UserDefaults::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/vantro/vantro.ini");
}

template <>
std::optional<QString> UserDefaults::read(const QString& key) const
{
    const QVariant value = settings_.value(key);
    if (value.metaType().id() != QMetaType::QString)
        return std::nullopt;
    return value.toString();
}

template <>
std::optional<bool> UserDefaults::read(const QString& key) const
{
    // The INI format is untyped: a Boolean is read back as text.
    const QString text = settings_.value(key).toString();
    const bool isTrue = text == QLatin1String("true");
    return isTrue || text == QLatin1String("false") ? std::optional(isTrue) : std::nullopt;
}

template <>
std::optional<qint64> UserDefaults::read(const QString& key) const
{
    bool ok = false;
    const qint64 value = settings_.value(key).toLongLong(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

template <>
std::optional<QByteArray> UserDefaults::read(const QString& key) const
{
    const auto text = read<QString>(key);
    return text ? std::optional(text->toUtf8()) : std::nullopt;
}

template <>
void UserDefaults::write(const QString& key, const QByteArray& value)
{
    write(key, QString::fromUtf8(value));
}

bool UserDefaults::contains(const QString& key) const
{
    return settings_.contains(key);
}

void UserDefaults::remove(const QString& key)
{
    settings_.remove(key);
    writeThrough();
}

void UserDefaults::keepUnreadable(const QString& key)
{
    const QString place = key + QStringLiteral(".unreadable");
    store(place, settings_.value(key));
    Logger("UserDefaults")
        .error(QStringLiteral("The setting \"%1\" cannot be read; it is kept as \"%2\"").arg(key, place));
}

void UserDefaults::reload()
{
    settings_.sync();
    const QHash<QString, QVariant> former = std::exchange(known_, contents(settings_));
    QStringList changedKeys;
    for (auto entry = known_.cbegin(); entry != known_.cend(); ++entry) {
        if (const auto before = former.constFind(entry.key()); before == former.cend() || !isSame(*before, *entry))
            changedKeys << entry.key();
    }
    for (auto entry = former.cbegin(); entry != former.cend(); ++entry) {
        if (!known_.contains(entry.key()))
            changedKeys << entry.key();
    }
    for (const QString& key : changedKeys)
        Q_EMIT changed(key);
}

void UserDefaults::watch()
{
    if (watcher_)
        return;
    watcher_ = std::make_unique<QFileSystemWatcher>();
    const auto look = [this] {
        watchFile();
        reload();
    };
    connect(watcher_.get(), &QFileSystemWatcher::fileChanged, this, look);
    connect(watcher_.get(), &QFileSystemWatcher::directoryChanged, this, look);
    watchFile();
    reload();
}

/// Every write replaces the file, which ends its watch; watching the folder catches the new file.
void UserDefaults::watchFile()
{
    const QFileInfo file(settings_.fileName());
    QDir().mkpath(file.absolutePath());
    for (const QString& path : {file.absolutePath(), file.absoluteFilePath()}) {
        if (QFileInfo::exists(path) && !watcher_->files().contains(path) && !watcher_->directories().contains(path))
            watcher_->addPath(path);
    }
}

void UserDefaults::store(const QString& key, const QVariant& value)
{
    if (!settings_.contains(versionKey))
        settings_.setValue(versionKey, settingsVersion);
    settings_.setValue(key, value);
    writeThrough();
}

void UserDefaults::writeThrough()
{
    reload();
    if (settings_.status() != QSettings::NoError) {
        Logger("UserDefaults").error(QStringLiteral("Could not write the settings file %1").arg(settings_.fileName()));
        Q_EMIT writeFailed(settings_.fileName());
        return;
    }
    QFile::setPermissions(settings_.fileName(), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

} // namespace vantro
