#pragma once

#include "asr/CtcTokenizer.h"
#include "asr/Encoder.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace vantro::asr {

class GgufFile;

/// An encoder with a CTC head (arXiv:2305.05084 with the loss of Graves et al. 2006), loaded from a GGUF file: how
/// likely each piece of text, or the blank, is in each frame of 80 ms. Immutable and thread-safe after loading.
class CtcModel
{
public:
    /// Any thread. @p moduleFolders and @p cap: as for AsrModels::load(). Throws ASRError: modelLoadFailed for a
    /// missing, damaged or unsupported file or if memory runs out, unsupportedPlatform without a module.
    static std::shared_ptr<const CtcModel> load(const std::filesystem::path& file,
                                                std::span<const std::filesystem::path> moduleFolders,
                                                kernels::Level cap = kernels::highestLevel);

    /// Yields a score for each piece and then the blank.
    [[nodiscard]] AcousticNetwork network() const { return {preprocessor_, encoder_, head_}; }
    [[nodiscard]] const CtcTokenizer& tokenizer() const { return tokenizer_; }
    [[nodiscard]] std::int32_t blankId() const { return blankId_; }

private:
    CtcModel(const GgufFile& file, kernels::Level cap);

    Preprocessor preprocessor_;
    Encoder encoder_;
    Weights weights_;
    Linear head_;
    CtcTokenizer tokenizer_;
    std::int32_t blankId_;
};

} // namespace vantro::asr
