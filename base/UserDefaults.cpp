#include "base/UserDefaults.h"

#include "base/FileLock.h"
#include "base/Logger.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QSettings>
#include <QStandardPaths>

#include <utility>

using namespace std::chrono_literals;

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
    return one.isValid() == other.isValid() && one.toStringList() == other.toStringList() &&
           one.toString() == other.toString();
}

/// Absent where no file can be made, where nothing can be written either, and when somebody keeps it for too long.
std::optional<FileLock> lockFor(const QString& path, std::chrono::milliseconds patience)
{
    const QFileInfo file(path);
    try {
        return FileLock::take(file.absolutePath() + QStringLiteral("/.") + file.fileName() + QStringLiteral(".change"),
                              patience);
    } catch (const Error& error) {
        Logger("UserDefaults").debug(error.localizedDescription());
        return std::nullopt;
    }
}

} // namespace

/// One change, nested or not.
class UserDefaults::Scope
{
public:
    explicit Scope(UserDefaults& defaults) : defaults_(defaults) { ++defaults_.depth_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope() { --defaults_.depth_; }

private:
    UserDefaults& defaults_;
};

UserDefaults::UserDefaults(const QString& path) : path_(path)
{
    read();
    told_ = values_;
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
    const QVariant value = values_.value(key);
    if (value.metaType().id() != QMetaType::QString)
        return std::nullopt;
    return value.toString();
}

template <>
std::optional<bool> UserDefaults::read(const QString& key) const
{
    // The INI format is untyped: a Boolean is read back as text.
    const QString text = values_.value(key).toString();
    const bool isTrue = text == QLatin1String("true");
    return isTrue || text == QLatin1String("false") ? std::optional(isTrue) : std::nullopt;
}

template <>
std::optional<qint64> UserDefaults::read(const QString& key) const
{
    bool ok = false;
    const qint64 value = values_.value(key).toLongLong(&ok);
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
    return values_.contains(key);
}

void UserDefaults::remove(const QString& key)
{
    store(key, {});
}

void UserDefaults::keepUnreadable(const QString& key)
{
    const QString place = key + QStringLiteral(".unreadable");
    store(place, values_.value(key));
    Logger("UserDefaults")
        .error(QStringLiteral("The setting \"%1\" cannot be read; it is kept as \"%2\"").arg(key, place));
}

void UserDefaults::reload()
{
    read();
    tell();
}

void UserDefaults::read()
{
    // A new reader each time: one remembers its first error for ever.
    const QSettings file(path_, QSettings::IniFormat);
    values_ = contents(file);
    if (file.status() == QSettings::FormatError)
        unusable_ = KeptAside::Reason::damaged;
    else if (values_.value(versionKey).toInt() > settingsVersion)
        unusable_ = KeptAside::Reason::newer;
    for (auto entry = pending_.cbegin(); entry != pending_.cend(); ++entry) {
        if (entry->isValid())
            values_.insert(entry.key(), *entry);
        else
            values_.remove(entry.key());
    }
}

void UserDefaults::tell()
{
    const Values former = std::exchange(told_, values_);
    QStringList changedKeys;
    for (auto entry = told_.cbegin(); entry != told_.cend(); ++entry) {
        if (!isSame(former.value(entry.key()), *entry))
            changedKeys << entry.key();
    }
    for (auto entry = former.cbegin(); entry != former.cend(); ++entry) {
        if (!told_.contains(entry.key()))
            changedKeys << entry.key();
    }
    for (const QString& key : changedKeys)
        Q_EMIT changed(key);
}

void UserDefaults::change(const std::function<void()>& edit)
{
    if (depth_ > 0) {
        edit();
        return;
    }
    {
        const Scope scope(*this);
        QDir().mkpath(QFileInfo(path_).absolutePath());
        // A stopped process must not hold up the windows; a command has nobody waiting, and others before it.
        const auto lock = lockFor(path_, watcher_ ? 2s : 30s);
        reload();
        edit();
        if (!pending_.isEmpty())
            writeThrough();
    }
    tell();
}

void UserDefaults::requireSaved() const
{
    if (!pending_.isEmpty())
        throw SettingsNotSaved(
            QCoreApplication::translate("UserDefaults", "the settings file %1 cannot be written: nothing is changed")
                .arg(path_));
}

const std::optional<KeptAside>& UserDefaults::repair()
{
    if (unusable_)
        store(versionKey, settingsVersion);
    return keptAside_;
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
    const QFileInfo file(path_);
    QDir().mkpath(file.absolutePath());
    for (const QString& path : {file.absolutePath(), file.absoluteFilePath()}) {
        if (QFileInfo::exists(path) && !watcher_->files().contains(path) && !watcher_->directories().contains(path))
            watcher_->addPath(path);
    }
}

void UserDefaults::store(const QString& key, const QVariant& value)
{
    const auto set = [this](const QString& name, const QVariant& wanted) {
        pending_.insert(name, wanted);
        if (wanted.isValid())
            values_.insert(name, wanted);
        else
            values_.remove(name);
    };
    change([&] {
        if (isSame(values_.value(key), value) && !unusable_ && pending_.isEmpty())
            return;
        set(versionKey, settingsVersion);
        set(key, value);
    });
}

void UserDefaults::writeThrough()
{
    if (!isWritten()) {
        Logger("UserDefaults").error(QStringLiteral("Could not write the settings file %1").arg(path_));
        Q_EMIT writeFailed(path_);
        return;
    }
    pending_.clear();
    unusable_.reset();
    QFile::setPermissions(path_, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

bool UserDefaults::isWritten()
{
    // A file that exists and cannot be read would count as an empty one.
    if (const QFileInfo file(path_); file.exists() && !file.isReadable())
        return false;
    if (unusable_) {
        const auto kept = keepAside(path_, *unusable_);
        if (!kept)
            return false;
        keptAside_ = kept;
    }
    QSettings writer(path_, QSettings::IniFormat);
    std::ignore = writer.allKeys();
    for (auto entry = pending_.cbegin(); entry != pending_.cend(); ++entry) {
        if (entry->isValid())
            writer.setValue(entry.key(), *entry);
        else
            writer.remove(entry.key());
    }
    // Both work on the same contents, which this one writes; unlike the writer it has no error from reading them.
    const QSettings verdict(path_, QSettings::IniFormat);
    return verdict.status() == QSettings::NoError;
}

} // namespace vantro
