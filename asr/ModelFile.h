#pragma once

#include "asr/FileReader.h"
#include "asr/ModelLayout.h"

#include <ggml.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vantro::asr {

/// A Parakeet model in the ggml container of whisper.cpp's converter: header, filter bank, window, durations, text
/// pieces, tensors; all little-endian.
///
/// The file is untrusted: the constructor checks every size against the rest of the file before allocating, and every
/// tensor's presence, shape and type against the header. Throws ASRError::modelLoadFailed.
class ModelFile
{
public:
    struct Tensor
    {
        ggml_type type = GGML_TYPE_F32;
        TensorShape shape{1, 1, 1, 1};
        std::uint64_t offset = 0;
        std::uint64_t bytes = 0;
    };

    explicit ModelFile(const std::filesystem::path& path);

    /// Reads only the header; nullopt if the file is not such a container or unreadable.
    static std::optional<Hyperparameters> headerOf(const std::filesystem::path& path);

    [[nodiscard]] const Hyperparameters& hyperparameters() const { return parameters_; }
    [[nodiscard]] const std::vector<float>& filterBank() const { return filterBank_; } ///< [mel band][frequency bin]
    [[nodiscard]] const std::vector<float>& window() const { return window_; }
    [[nodiscard]] const std::vector<std::int32_t>& durations() const { return durations_; } ///< encoder frames
    [[nodiscard]] const std::vector<std::string>& pieces() const { return pieces_; }
    [[nodiscard]] std::int64_t jointSize() const { return jointSize_; }
    [[nodiscard]] std::int64_t feedForwardSize() const { return feedForwardSize_; }

    /// A tensor of modelLayout().
    [[nodiscard]] const Tensor& tensor(const std::string& name) const;
    /// Reads part of a tensor, from byte @p skipped on. Any thread, also concurrently.
    void read(const Tensor& tensor, std::uint64_t skipped, std::span<std::byte> target) const;
    /// Maps the whole file; the mapping may outlive this object. Throws ASRError::modelLoadFailed.
    [[nodiscard]] std::shared_ptr<const FileMapping> map() const { return file_.map(); }
    /// The values of a float32 tensor.
    [[nodiscard]] std::vector<float> readFloats(const std::string& name) const;

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
    void checkLayout();

    [[nodiscard]] std::uint64_t remaining() const { return file_.size() - position_; }
    [[nodiscard]] std::int32_t readInt(const char* what);
    void readBytes(void* target, std::uint64_t bytes, const char* what);
    [[nodiscard]] std::vector<float> readFiniteFloats(std::uint64_t count, const char* what);

    FileReader file_;
    std::uint64_t position_ = 0; ///< of the next readBytes()
    std::array<std::byte, 4096> ahead_{};
    std::uint64_t aheadBegin_ = 0; ///< file offset of ahead_
    std::uint64_t aheadEnd_ = 0;
    Hyperparameters parameters_;
    std::vector<float> filterBank_;
    std::vector<float> window_;
    std::vector<std::int32_t> durations_;
    std::vector<std::string> pieces_;
    std::map<std::string, Tensor> tensors_;
    std::int64_t feedForwardSize_ = 0;
    std::int64_t jointSize_ = 0;
};

} // namespace vantro::asr
