#pragma once

#include "vantro/cli/CommandLine.h"

namespace vantro {

/// Builds everything the desktop program consists of, hands it out, and runs the event loop. The only place where the
/// parts meet. Answers the process's exit code.
int runProgram(const ProgramOptions& options);

} // namespace vantro
