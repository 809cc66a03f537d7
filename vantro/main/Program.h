#pragma once

#include "vantro/cli/CommandLine.h"

namespace vantro {

/// Puts the desktop program together and runs its event loop. Returns the exit code of the process.
int runProgram(const ProgramOptions& options);

} // namespace vantro
