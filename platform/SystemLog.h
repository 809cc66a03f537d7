#pragma once

#include "base/LogOutput.h"

/// The log that the system keeps for its programs.
namespace vantro::systemlog {

/// Where the desktop program's lines go: into the system's log where there is one, and to standard error unless that
/// leads there too.
[[nodiscard]] std::vector<LogSink> sinks();
/// Whether the system keeps a log here.
[[nodiscard]] bool isPresent();
/// Turns this process into the system's own reader of the program's lines. @p since: as that reader understands it;
/// empty for all. Returns only when that fails, with the reason.
[[nodiscard]] QString read(const QString& since, bool follow);

} // namespace vantro::systemlog
