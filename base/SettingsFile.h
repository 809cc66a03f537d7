#pragma once

#include <QString>

#include <optional>

namespace vantro {

/// Written as "settingsVersion". Increment when older versions would misread the file.
inline constexpr int settingsVersion = 1;

/// A backup of a settings file that could not be read completely.
struct KeptAside
{
    enum class Reason { damaged, newer };

    Reason reason;
    QString file;
};

/// Copies the settings file at @p path under the first free name beside it. Returns nullopt if that fails.
std::optional<KeptAside> keepAside(const QString& path, KeptAside::Reason reason);

} // namespace vantro
