#pragma once

#include <filesystem>

namespace vantro::asr::accelerator {

/// Loads ggml's module for this processor from the program's or the installation's folder, unless there is one already,
/// and announces the accelerator. Whoever has ggml choose among its devices calls this before: the list has no lock.
/// False if there is no module. From any thread.
bool loadProcessorBackend(const std::filesystem::path& programFolder);

} // namespace vantro::asr::accelerator
