#pragma once

#include "asr/FileReader.h"
#include "asr/ModelLayout.h"

#include <ggml.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace vantro::asr {

/// A model's file as the networks see it: their sizes, the features' filters and the tensors. A reader per file format
/// derives from it. It fills it in and checks every tensor's presence, shape and type against the header, so that the
/// networks need not.
class ModelSource
{
public:
    struct Tensor
    {
        ggml_type type = GGML_TYPE_F32;
        TensorShape shape{1, 1, 1, 1};
        std::uint64_t offset = 0; ///< from the start of the file
        std::uint64_t bytes = 0;
    };

    ModelSource(const ModelSource&) = delete;
    ModelSource& operator=(const ModelSource&) = delete;

    [[nodiscard]] virtual const EncoderParameters& encoderParameters() const = 0;
    [[nodiscard]] const std::vector<float>& filterBank() const { return filterBank_; } ///< [mel band][frequency bin]
    [[nodiscard]] const std::vector<float>& window() const { return window_; }
    [[nodiscard]] const std::vector<std::string>& pieces() const { return pieces_; }

    /// A tensor of the model's layout.
    [[nodiscard]] const Tensor& tensor(const std::string& name) const;
    /// Reads part of a tensor, from byte @p skipped on. Any thread, also concurrently.
    void read(const Tensor& tensor, std::uint64_t skipped, std::span<std::byte> target) const;
    /// Maps the whole file; the mapping may outlive this object. Throws ASRError::modelLoadFailed.
    [[nodiscard]] std::shared_ptr<const FileMapping> map() const { return file_.map(); }
    /// The values of a float32 tensor.
    [[nodiscard]] std::vector<float> readFloats(const std::string& name) const;

protected:
    explicit ModelSource(const std::filesystem::path& path) : file_(path) {}
    ~ModelSource() = default;

    [[nodiscard]] const FileReader& file() const { return file_; }
    /// Sets the shape from a tensor's header: throws if it exceeds the file or has too many dimensions.
    void setShape(Tensor& tensor, std::span<const std::int64_t> extents) const;
    /// Sets type and length; the shape must be set. Throws for a type that is unknown or does not fit the rows.
    static void setType(Tensor& tensor, std::int64_t type, const std::string& name);
    void addTensor(const std::string& name, const Tensor& tensor);
    /// Throws unless the file has these tensors and no others.
    void checkLayout(std::span<const TensorLayout> layout) const;

    std::vector<float> filterBank_;
    std::vector<float> window_;
    std::vector<std::string> pieces_;

private:
    FileReader file_;
    std::map<std::string, Tensor> tensors_;
};

} // namespace vantro::asr
