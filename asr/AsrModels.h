#pragma once

#include "asr/Decoder.h"
#include "asr/Encoder.h"
#include "asr/JointDecision.h"
#include "asr/Preprocessor.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vantro::asr {

enum class AsrModelVersion { v2, v3, tdtCtc110m, tdtJa };

/// A loaded model's parameters.
struct AsrModelConfiguration
{
    AsrModelVersion version = AsrModelVersion::v3;
    std::int32_t blankId = 0;
    std::int32_t encoderHiddenSize = 0;
    std::int32_t maxSymbolsPerStep = 0;
    std::vector<std::int32_t> durationBins; ///< encoder frames
};

/// The networks of one Parakeet TDT model, loaded from one file. Immutable and thread-safe after loading.
struct AsrModels
{
    /// Any thread. @p moduleFolders are searched for ggml's module for this processor; @p cap: the highest instruction
    /// set that the products outside that module may use, for tests and measurements. Throws ASRError: modelLoadFailed
    /// for a missing, damaged or unsupported file or if memory runs out, unsupportedPlatform without a module.
    static std::shared_ptr<const AsrModels> load(const std::filesystem::path& file, AsrModelVersion version,
                                                 std::span<const std::filesystem::path> moduleFolders,
                                                 kernels::Level cap = kernels::highestLevel);

    /// Up to the joint network.
    [[nodiscard]] AcousticNetwork network() const { return {preprocessor, encoder, joint.frameProjection()}; }

    Encoder encoder;
    Preprocessor preprocessor;
    Decoder decoder;
    JointDecision joint;
    AsrModelConfiguration configuration;
    std::vector<std::string> vocabulary; ///< text piece by token id; U+2581 marks the start of a word
};

/// Which published model @p file is, judging by the vocabulary size in its header; nullopt if it is not a Parakeet
/// model or unreadable.
std::optional<AsrModelVersion> parakeetVersionOf(const std::filesystem::path& file);

} // namespace vantro::asr
