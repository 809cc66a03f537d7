#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>

#include <optional>

namespace vantro {

/// The user's preferences: typed values under lower camel case keys in one INI file below the XDG configuration folder.
/// Every setter writes through. A value of another type than the one asked for counts as absent. Main thread only.
class UserDefaults
{
public:
    /// @p path: the INI file; it is made, readable by its owner only, on the first write.
    explicit UserDefaults(const QString& path);

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

    /// Re-reads what another process has written meanwhile.
    void reload();

private:
    void store(const QString& key, const QVariant& value);

    QSettings settings_;
};

} // namespace vantro
