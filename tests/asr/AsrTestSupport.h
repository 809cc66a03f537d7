#pragma once

#include "asr/ASRError.h"
#include "asr/AsrManager.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantro::asr::testing {

std::filesystem::path dataFolder();
std::vector<std::filesystem::path> moduleFolders();

/// A recording of the data folder: 16 kHz mono.
std::vector<float> recording(const std::string& name);

/// What the reference implementation makes of a recording.
struct Expectation
{
    struct Token
    {
        std::int32_t id;
        std::int32_t frame;
        std::int32_t duration;
        bool operator==(const Token&) const = default;
    };

    std::string file;
    std::string said;
    std::string text;
    std::string ctcText; ///< of the CTC model
    std::vector<Token> tokens;
};
std::vector<Expectation> expectations();

/// Numbers of the reference implementation.
std::vector<float> reference(const std::string& name);
/// Infinite if the lengths differ.
float largestDifference(const std::vector<float>& a, const std::vector<float>& b);

std::shared_ptr<const AsrModels> loadMicro(const std::string& variant = "parakeet-micro-tdt.bin",
                                           AsrModelVersion version = AsrModelVersion::v2,
                                           kernels::Level cap = kernels::highestLevel);

ASRResult transcribe(AsrManager& manager, const std::vector<float>& samples, const AsrManager::Options& options = {});

/// The kind of ASRError that @p action throws; nothing when it throws none.
std::optional<ASRError::Kind> errorOf(const std::function<void()>& action);

} // namespace vantro::asr::testing
