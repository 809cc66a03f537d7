#pragma once

#include "base/Error.h"
#include "base/Setting.h"
#include "base/SettingsFile.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>

class QFileSystemWatcher;

namespace vantro {

/// A setting could not be written.
class SettingsNotSaved : public Error
{
public:
    using Error::Error;
};

/// The user's preferences (see base/Settings.h) in one INI file below the XDG configuration folder. Every setter writes
/// through; a value that cannot be written stays in force until the process ends. Main thread only.
///
/// Several processes may share the file: a write stores only the keys that were set. Use change() to read a value,
/// modify it and write it back.
///
/// Of a damaged file, or one from a newer version, every readable value is used. Reading never touches such a file;
/// before the first write it is copied.
class UserDefaults final : public QObject
{
    Q_OBJECT
public:
    /// @p path: the INI file, created with mode 0600 on the first write.
    explicit UserDefaults(const QString& path);
    ~UserDefaults() override;

    /// "vantro/vantro.ini" below the XDG configuration folder.
    static QString standardPath();

    template <typename T>
    [[nodiscard]] T get(const Setting<T>& setting) const
    {
        if constexpr (std::is_arithmetic_v<T>)
            return stored(setting).value_or(setting.absent);
        else
            return stored(setting).value_or(T::fromStdString(setting.absent));
    }
    /// Also nullopt when the stored value has another type.
    template <typename T>
    [[nodiscard]] std::optional<T> stored(const Setting<T>& setting) const
    {
        return read<T>(setting.key);
    }
    template <typename T>
    void set(const Setting<T>& setting, const std::type_identity_t<T>& value)
    {
        write<T>(setting.key, value);
    }

    // For keys that are composed at run time.
    template <typename T>
    [[nodiscard]] std::optional<T> read(const QString& key) const;
    template <typename T>
    void write(const QString& key, const T& value)
    {
        store(key, QVariant(value));
    }
    [[nodiscard]] bool contains(const QString& key) const;
    void remove(const QString& key);
    /// Copies @p key's value to "KEY.unreadable", so that overwriting it loses nothing.
    void keepUnreadable(const QString& key);

    /// Reloads, runs @p edit and writes what it has set, under a lock that all processes share. May be nested.
    void change(const std::function<void()>& edit);
    /// Throws SettingsNotSaved if a value could not be written.
    void requireSaved() const;
    /// Rewrites a damaged or newer file. Returns the backup, if this or an earlier write made one.
    const std::optional<KeptAside>& repair();

    /// Picks up changes made by other processes.
    void reload();
    /// Starts watching the file for writes by other processes. Requires an event loop.
    void watch();

Q_SIGNALS:
    /// @p key was changed or removed, by this or another process; get() already returns the new value.
    void changed(const QString& key);
    /// A change could not be written to @p file and is lost when the process ends.
    void writeFailed(const QString& file);

private:
    class Scope;
    using Values = QHash<QString, QVariant>;

    void store(const QString& key, const QVariant& value);
    void read();
    void tell();
    void writeThrough();
    [[nodiscard]] bool isWritten();
    void watchFile();

    QString path_;
    Values values_;
    Values told_;    ///< those that changed() has told of
    Values pending_; ///< not in the file yet; an invalid one is to be removed
    int depth_ = 0;  ///< of nested changes
    std::optional<KeptAside::Reason> unusable_;
    std::optional<KeptAside> keptAside_;
    std::unique_ptr<QFileSystemWatcher> watcher_;
};

template <>
std::optional<QString> UserDefaults::read(const QString& key) const;
template <>
std::optional<bool> UserDefaults::read(const QString& key) const;
template <>
std::optional<qint64> UserDefaults::read(const QString& key) const;
template <>
std::optional<QByteArray> UserDefaults::read(const QString& key) const;
template <>
void UserDefaults::write(const QString& key, const QByteArray& value);

} // namespace vantro
