#pragma once

#include "base/LogOutput.h"

/// The system's log.
namespace vantro::systemlog {

/// The desktop program's log sinks: the system's log if present, and standard error unless that ends up in the same
/// log.
[[nodiscard]] std::vector<LogSink> sinks();
/// Whether the system has a log.
[[nodiscard]] bool isPresent();
/// Replaces this process with the system's log viewer, filtered for the program's lines. @p since: in that viewer's
/// syntax, empty for all. Returns only on failure, with the reason.
[[nodiscard]] QString read(const QString& since, bool follow);

} // namespace vantro::systemlog
