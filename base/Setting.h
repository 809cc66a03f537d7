#pragma once

#include <QByteArray>
#include <QLatin1String>
#include <QString>

#include <type_traits>

namespace vantro {

enum class SettingKind { truth, number, text, json };

/// A setting's key and documentation, independent of its type.
struct SettingKey
{
    QLatin1String key;
    const char* meaning;   ///< a line of Markdown for the user; null for internal settings
    const char* otherwise; ///< the default, in words
    SettingKind kind;
};

/// A setting of type @p T: bool, qint64, QString, or QByteArray holding JSON. `absent` is the default, also when the
/// stored value has another type.
template <typename T>
struct Setting : SettingKey
{
    using Absent = std::conditional_t<std::is_arithmetic_v<T>, T, const char*>;

    constexpr Setting(const char* name, Absent value, const char* use = nullptr, const char* words = nullptr)
        : SettingKey{QLatin1String(name), use, words != nullptr ? words : inWords(value), kindOf()}
        , absent(value)
    {
    }

    Absent absent;

private:
    static constexpr SettingKind kindOf()
    {
        return std::is_same_v<T, bool>      ? SettingKind::truth
               : std::is_arithmetic_v<T>    ? SettingKind::number
               : std::is_same_v<T, QString> ? SettingKind::text
                                            : SettingKind::json;
    }
    static constexpr const char* inWords(bool value) { return value ? "true" : "false"; }
    static constexpr const char* inWords(const char* value) { return value; }
};

} // namespace vantro
