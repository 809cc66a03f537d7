#pragma once

#include "asr/ModelSource.h"
#include "asr/SequentialReader.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vantro::asr {

/// An encoder with a CTC head in GGUF, version 3 (the format is described in ggml's documentation): typed key-value
/// pairs, a directory of tensors, aligned data; all little-endian.
///
/// The file is untrusted: the constructor checks every count and size against the rest of the file before allocating,
/// and every tensor's presence, place, shape and type against the header. Throws ASRError::modelLoadFailed.
class GgufFile final : public ModelSource
{
public:
    explicit GgufFile(const std::filesystem::path& path);

    /// Whether the file begins as one.
    static bool isGguf(const std::filesystem::path& path);

    [[nodiscard]] const EncoderParameters& encoderParameters() const override { return parameters_; }
    /// Of the pieces: the higher, the earlier they are merged.
    [[nodiscard]] const std::vector<float>& scores() const { return scores_; }
    [[nodiscard]] std::int32_t unknownPiece() const { return unknownPiece_; }

private:
    using Value = std::variant<std::monostate, std::int64_t, double, bool, std::string, std::vector<std::string>,
                               std::vector<float>>;

    void readPair();
    [[nodiscard]] Value readValue(std::uint32_t type);
    [[nodiscard]] Value readArray();
    template <typename Stored, typename Kept>
    [[nodiscard]] Value readNumber();
    void readTensors(std::uint64_t count);
    [[nodiscard]] std::pair<std::string, Tensor> readTensorEntry();
    void readParameters();
    void readTokenizer();
    void readFilters();

    template <typename T>
    [[nodiscard]] const T& value(const std::string& key) const;
    [[nodiscard]] std::int32_t integer(const std::string& key) const;
    /// The encoder's arithmetic has these values built in.
    void requireNumber(const std::string& key, double expected) const;

    SequentialReader in_{file()};
    std::map<std::string, Value> pairs_;
    EncoderParameters parameters_;
    std::vector<float> scores_;
    std::int32_t unknownPiece_ = 0;
};

} // namespace vantro::asr
