#pragma once

#include <filesystem>

namespace vantro::asr::accelerator {

/// Loads ggml's module for this processor from the program's or the installation's folder, unless there is one already.
/// False if there is none. From any thread.
bool loadProcessorBackend(const std::filesystem::path& programFolder);

} // namespace vantro::asr::accelerator
