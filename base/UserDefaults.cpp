#include "base/UserDefaults.h"

#include "base/Logger.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QStandardPaths>

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

std::optional<QString> UserDefaults::string(const QString& key) const
{
    const QVariant value = settings_.value(key);
    if (value.metaType().id() != QMetaType::QString)
        return std::nullopt;
    return value.toString();
}

bool UserDefaults::boolean(const QString& key, bool absent) const
{
    // The INI format keeps no types: a Boolean comes back as the text it was written as.
    const QString text = settings_.value(key).toString();
    if (text == QLatin1String("true"))
        return true;
    if (text == QLatin1String("false"))
        return false;
    return absent;
}

std::optional<qint64> UserDefaults::integer(const QString& key) const
{
    bool ok = false;
    const qint64 value = settings_.value(key).toLongLong(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

std::optional<QByteArray> UserDefaults::data(const QString& key) const
{
    const auto text = string(key);
    return text ? std::optional(text->toUtf8()) : std::nullopt;
}

bool UserDefaults::contains(const QString& key) const
{
    return settings_.contains(key);
}

void UserDefaults::setString(const QString& key, const QString& value)
{
    store(key, value);
}

void UserDefaults::setBoolean(const QString& key, bool value)
{
    store(key, value);
}

void UserDefaults::setInteger(const QString& key, qint64 value)
{
    store(key, value);
}

void UserDefaults::setData(const QString& key, const QByteArray& value)
{
    store(key, QString::fromUtf8(value));
}

void UserDefaults::remove(const QString& key)
{
    settings_.remove(key);
    written(key);
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
    const QHash<QString, QVariant> now = contents(settings_);
    QStringList changed;
    for (auto entry = now.cbegin(); entry != now.cend(); ++entry) {
        // As text: what this process set keeps its type until it is read back.
        const auto former = known_.constFind(entry.key());
        if (former == known_.cend() || former->toStringList() != entry->toStringList() ||
            former->toString() != entry->toString())
            changed << entry.key();
    }
    for (auto entry = known_.cbegin(); entry != known_.cend(); ++entry) {
        if (!now.contains(entry.key()))
            changed << entry.key();
    }
    known_ = now;
    if (!changed.isEmpty())
        Q_EMIT changedElsewhere(changed);
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

/// The file is replaced at every write, which ends the watch on the former one; the folder tells of the new one.
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
    if (!settings_.contains(versionKey)) {
        settings_.setValue(versionKey, settingsVersion);
        known_.insert(versionKey, settingsVersion);
    }
    settings_.setValue(key, value);
    written(key);
}

void UserDefaults::written(const QString& key)
{
    if (settings_.contains(key))
        known_.insert(key, settings_.value(key));
    else
        known_.remove(key);
    reload();
    if (settings_.status() != QSettings::NoError) {
        Logger("UserDefaults").error(QStringLiteral("Could not write the settings file %1").arg(settings_.fileName()));
        Q_EMIT writeFailed(settings_.fileName());
        return;
    }
    QFile::setPermissions(settings_.fileName(), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

} // namespace vantro
