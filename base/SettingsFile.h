#pragma once

#include <QString>

#include <optional>

namespace vantro {

/// Written as "settingsVersion". Increment when older versions would misread the file.
inline constexpr int settingsVersion = 1;

/// Why a settings file was moved aside, and its new path.
struct KeptAside
{
    enum class Reason { damaged, newer };

    Reason reason;
    QString file;
};

/// Renames the settings file at @p path if it is damaged (a partial line, NUL bytes) or from a newer version, so that
/// it is not overwritten; the program continues with defaults. Returns nullopt if the file is usable or cannot be
/// renamed.
std::optional<KeptAside> keepAsideIfUnusable(const QString& path);

} // namespace vantro
