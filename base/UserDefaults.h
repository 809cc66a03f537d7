#pragma once

#include "base/Setting.h"
#include "base/SettingsFile.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QSettings>
#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

class QFileSystemWatcher;

namespace vantro {

/// The user's preferences, which base/Settings.h lists: one INI file below the XDG configuration folder. Every setter
/// writes through. Main thread only.
///
/// Several processes may hold the same file: a write stores the keys that were set and leaves the others as they are in
/// the file.
class UserDefaults final : public QObject
{
    Q_OBJECT
public:
    /// @p path: the INI file; it is made, readable by its owner only, on the first write. One that is damaged or comes
    /// from a newer version is put aside before.
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
    /// Nothing as well when a value of another type is stored.
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

    // For keys that are made while the program runs.
    template <typename T>
    [[nodiscard]] std::optional<T> read(const QString& key) const;
    template <typename T>
    void write(const QString& key, const T& value)
    {
        store(key, QVariant(value));
    }
    [[nodiscard]] bool contains(const QString& key) const;
    void remove(const QString& key);
    /// Copies the text under @p key to @p key and ".unreadable": what this program cannot read is not lost when it is
    /// overwritten.
    void keepUnreadable(const QString& key);

    /// The file that was found and could not be used; nothing in the usual case.
    [[nodiscard]] const std::optional<KeptAside>& keptAside() const { return keptAside_; }

    /// Reads what another process has written meanwhile.
    void reload();
    /// From now on another process's writes are noticed by themselves. Needs an event loop.
    void watch();

Q_SIGNALS:
    /// @p key was set to another value, or removed, by this process or by another one; the new value is in place.
    void changed(const QString& key);
    /// A change could not be written to @p file; it is in force until the process ends.
    void writeFailed(const QString& file);

private:
    void store(const QString& key, const QVariant& value);
    void writeThrough();
    void watchFile();

    std::optional<KeptAside> keptAside_; ///< before the settings are read
    QSettings settings_;
    QHash<QString, QVariant> known_; ///< the values that changed() has told of
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
