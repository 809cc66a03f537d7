#pragma once

#include <QLatin1String>

#include <type_traits>

namespace vantro {

/// A setting by its key, whatever its type.
struct SettingKey
{
    QLatin1String key;
    const char* meaning;   ///< a line of Markdown for the user; null for what the program notes for itself
    const char* otherwise; ///< what counts where nothing is stored, in words
};

/// A setting whose values are of type @p T: bool, qint64, QString, or QByteArray with JSON. Where nothing is stored, or
/// something of another type, `absent` counts.
template <typename T>
struct Setting : SettingKey
{
    using Absent = std::conditional_t<std::is_arithmetic_v<T>, T, const char*>;

    constexpr Setting(const char* name, Absent value, const char* use = nullptr, const char* words = nullptr)
        : SettingKey{QLatin1String(name), use, words != nullptr ? words : inWords(value)}
        , absent(value)
    {
    }

    Absent absent;

private:
    static constexpr const char* inWords(bool value) { return value ? "true" : "false"; }
    static constexpr const char* inWords(const char* value) { return value; }
};

} // namespace vantro
