#pragma once

#include "asr/ModelSource.h"
#include "asr/SequentialReader.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace vantro::asr {

/// A Parakeet model in the ggml container of whisper.cpp's converter: header, filter bank, window, durations, text
/// pieces, tensors; all little-endian.
///
/// The file is untrusted: the constructor checks every size against the rest of the file before allocating, and every
/// tensor's presence, shape and type against the header. Throws ASRError::modelLoadFailed.
class ModelFile final : public ModelSource
{
public:
    explicit ModelFile(const std::filesystem::path& path);

    /// Reads only the header; nullopt if the file is not such a container or unreadable.
    static std::optional<Hyperparameters> headerOf(const std::filesystem::path& path);

    [[nodiscard]] const EncoderParameters& encoderParameters() const override { return parameters_; }
    [[nodiscard]] const Hyperparameters& hyperparameters() const { return parameters_; }
    [[nodiscard]] const std::vector<std::int32_t>& durations() const { return durations_; } ///< encoder frames
    [[nodiscard]] std::int64_t jointSize() const { return jointSize_; }
    [[nodiscard]] std::int64_t feedForwardSize() const { return feedForwardSize_; }

private:
    struct HeaderOnly
    {
    };

    ModelFile(const std::filesystem::path& path, HeaderOnly extent);
    void readHeader();
    void readFilters();
    void readVocabulary();
    void readDirectory();
    void readTensorEntry();

    SequentialReader in_{file()};
    Hyperparameters parameters_;
    std::vector<std::int32_t> durations_;
    std::int64_t feedForwardSize_ = 0;
    std::int64_t jointSize_ = 0;
};

} // namespace vantro::asr
