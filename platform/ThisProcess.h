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

} // namespace vantro::process
