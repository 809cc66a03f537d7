#pragma once

namespace vantro {

/// How a command ends. The same for every command, so that scripts can tell failures apart.
namespace ExitCode {
inline constexpr int done = 0;
inline constexpr int failed = 1;
inline constexpr int usage = 2;
inline constexpr int notFound = 3;
inline constexpr int noService = 4;
inline constexpr int interrupted = 130; ///< by Ctrl-C, as shells count it
} // namespace ExitCode

} // namespace vantro
