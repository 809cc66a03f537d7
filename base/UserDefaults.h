#pragma once

#include "base/SettingsFile.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <optional>

class QFileSystemWatcher;

namespace vantro {

/// The user's preferences: typed values under lower camel case keys in one INI file below the XDG configuration folder.
/// Every setter writes through. A value of another type than the one asked for counts as absent. Main thread only.
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

    [[nodiscard]] std::optional<QString> string(const QString& key) const;
    [[nodiscard]] bool boolean(const QString& key, bool absent) const;
    [[nodiscard]] std::optional<qint64> integer(const QString& key) const;
    [[nodiscard]] std::optional<QByteArray> data(const QString& key) const;
    [[nodiscard]] bool contains(const QString& key) const;

    void setString(const QString& key, const QString& value);
    void setBoolean(const QString& key, bool value);
    void setInteger(const QString& key, qint64 value);
    /// Lists and maps are stored as JSON data.
    void setData(const QString& key, const QByteArray& value);
    void remove(const QString& key);
    /// Copies the text under @p key to @p key and ".unreadable": what this program cannot read is not lost when it is
    /// overwritten.
    void keepUnreadable(const QString& key);

    /// The file that was found and could not be used; nothing in the usual case.
    [[nodiscard]] const std::optional<KeptAside>& keptAside() const { return keptAside_; }

    /// Re-reads what another process has written meanwhile; changedElsewhere() tells what that was.
    void reload();
    /// From now on another process's writes are noticed by themselves. Needs an event loop.
    void watch();

Q_SIGNALS:
    /// Another process has set, changed or removed these keys; their new values are in place.
    void changedElsewhere(const QStringList& keys);
    /// A change could not be written to @p file; it is in force until the process ends.
    void writeFailed(const QString& file);

private:
    void store(const QString& key, const QVariant& value);
    void written(const QString& key);
    void watchFile();

    std::optional<KeptAside> keptAside_; ///< before the settings are read
    QSettings settings_;
    QHash<QString, QVariant> known_; ///< the values as this process last saw them
    std::unique_ptr<QFileSystemWatcher> watcher_;
};

} // namespace vantro
