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

/// The user's preferences (see base/Settings.h) in one INI file below the XDG configuration folder. Every setter writes
/// through. Several processes may share the file: a write stores only the keys that were set. Main thread only.
class UserDefaults final : public QObject
{
    Q_OBJECT
public:
    /// @p path: the INI file, created with mode 0600 on the first write. A damaged file, or one from a newer version,
    /// is moved aside first.
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

    /// Set if the file was unusable and has been moved aside.
    [[nodiscard]] const std::optional<KeptAside>& keptAside() const { return keptAside_; }

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
    void store(const QString& key, const QVariant& value);
    void writeThrough();
    void watchFile();

    std::optional<KeptAside> keptAside_; ///< initialised before settings_ opens the file
    QSettings settings_;
    QHash<QString, QVariant> known_; ///< the values last reported by changed()
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
