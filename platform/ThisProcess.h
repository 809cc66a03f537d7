#pragma once

#include <QByteArray>

#include <filesystem>

/// What the system tells this process about itself. Any thread.
namespace vantro::process {

/// The file that the process was started from; empty when the system does not tell.
[[nodiscard]] std::filesystem::path programFile();
/// Another one after each start of the machine; empty when unknown.
[[nodiscard]] QByteArray bootIdentity();
/// What large objects took lies in many small pieces that an allocator keeps: has it return them to the system.
void giveMemoryBack();

} // namespace vantro::process
