#pragma once

namespace vantro {

/// The exit codes of all commands.
namespace ExitCode {
inline constexpr int done = 0;
inline constexpr int failed = 1;
inline constexpr int usage = 2;
inline constexpr int notFound = 3;
inline constexpr int noService = 4;
inline constexpr int notSaved = 5;      ///< the settings could not be written
inline constexpr int setAside = 6;      ///< a language model's answer was not believed
inline constexpr int interrupted = 130; ///< by Ctrl-C: 128 + SIGINT, as in shells
} // namespace ExitCode

} // namespace vantro
