#pragma once

#include <QString>

#include <optional>

namespace vantro {

/// What this version writes as "settingsVersion". Goes up when an older version would misread the file.
inline constexpr int settingsVersion = 1;

/// A settings file that this version must not write into, and where it lies now.
struct KeptAside
{
    enum class Reason { damaged, newer };

    Reason reason;
    QString file;
};

/// Renames the settings file at @p path when it is damaged (a half-written line, bytes that no text has) or comes from
/// a newer version, so that neither is overwritten: the program goes on with defaults. A file that cannot be renamed
/// stays where it is; nothing is answered then.
std::optional<KeptAside> keepAsideIfUnusable(const QString& path);

} // namespace vantro
