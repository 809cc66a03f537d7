#pragma once

#include "base/LogOutput.h"

namespace vantro::journal {

/// Whether the system's journal takes messages here.
[[nodiscard]] bool isPresent();
/// Whether standard error leads into the journal anyway, as for programs that the session starts.
[[nodiscard]] bool isStandardError();
/// Writes a line with its level and its type ("VANTRO_TYPE"), under the identifier "vantro". Any thread.
void write(QtMsgType level, const char* typeName, const QString& line);

} // namespace vantro::journal
