#pragma once

#include <QByteArray>

#include <filesystem>

/// Process-level system calls. Any thread.
namespace vantro::process {

/// The path of the running executable; empty if unknown.
[[nodiscard]] std::filesystem::path programFile();
/// A different value after each boot; empty if unknown.
[[nodiscard]] QByteArray bootIdentity();
/// Lets other work go first from now on. A thread cannot take that back.
void lowerPriorityOfThisThread();
/// Makes the allocator return free memory to the system, e.g. after large objects have been freed.
void giveMemoryBack();
/// When a fault ends the program from now on, it first writes to standard error where it stood.
void traceFaults();
/// Ends the process without the exit handlers of libraries. A thread that Qt uses for the network frees OpenSSL's
/// objects a moment after it has been joined, when OpenSSL's handler may have taken down what that needs. Main thread,
/// after everything of the program is gone.
[[noreturn]] void end(int status);

} // namespace vantro::process
