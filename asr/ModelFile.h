#pragma once

#include "asr/ModelLayout.h"

#include <ggml.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vantro::asr {

/// A Parakeet model in the ggml container that whisper.cpp's converter writes: header, filter bank, window, durations,
/// text pieces, tensors; all little-endian.
///
/// The file is not trusted: open() checks every size against what is left of the file before anything is allocated, and
/// every tensor's presence, shape and type against what the header announces. Throws ASRError::modelLoadFailed.
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

    /// The header of a file that begins like one of these containers; nothing when it is another or cannot be read.
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
    /// @p target has the tensor's size.
    void read(const Tensor& tensor, std::span<std::byte> target);
    /// A float32 tensor as values.
    [[nodiscard]] std::vector<float> readFloats(const std::string& name);

private:
    ModelFile() = default;
    void open(const std::filesystem::path& path);
    void readHeader();
    void readFilters();
    void readVocabulary();
    void readDirectory();
    void readTensorEntry();
    void checkLayout();

    [[nodiscard]] std::uint64_t remaining();
    [[nodiscard]] std::int32_t readInt(const char* what);
    void readBytes(void* target, std::uint64_t bytes, const char* what);
    [[nodiscard]] std::vector<float> readFiniteFloats(std::uint64_t count, const char* what);

    std::ifstream file_;
    std::uint64_t size_ = 0;
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
