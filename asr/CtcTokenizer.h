#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vantro::asr {

/// Splits text into the pieces of a CTC model as its training data was split: byte-pair encoding (arXiv:1508.07909) on
/// the characters of each word, where the pair with the highest score is merged first. Immutable; any thread.
class CtcTokenizer
{
public:
    /// @p scores: of the pieces. @p unknown: the piece that stands for characters without one.
    CtcTokenizer(std::vector<std::string> pieces, std::vector<float> scores, std::int32_t unknown);

    /// @p text: UTF-8 words, separated by blanks. Empty if nothing is left of it.
    [[nodiscard]] std::vector<std::int32_t> encode(std::string_view text) const;
    [[nodiscard]] const std::vector<std::string>& pieces() const { return pieces_; }
    [[nodiscard]] std::int32_t unknownPiece() const { return unknown_; }
    /// The text of pieces without the blank before the first word.
    [[nodiscard]] std::string decode(const std::vector<std::int32_t>& ids) const;

private:
    void encodeWord(const std::string& word, std::vector<std::int32_t>& ids) const;
    [[nodiscard]] std::int32_t find(const std::string& piece) const;

    std::vector<std::string> pieces_;
    std::vector<float> scores_;
    std::unordered_map<std::string, std::int32_t> ids_;
    std::int32_t unknown_;
};

} // namespace vantro::asr
