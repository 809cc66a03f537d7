#include "asr/CtcTokenizer.h"

#include "asr/Pieces.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace vantro::asr {

namespace {

constexpr std::int32_t none = -1;

/// The characters of UTF-8 text; stray bytes count as one each.
std::vector<std::string> characters(const std::string& text)
{
    std::vector<std::string> result;
    for (const char byte : text) {
        const bool continues = (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
        if (continues && !result.empty())
            result.back() += byte;
        else
            result.emplace_back(1, byte);
    }
    return result;
}

} // namespace

CtcTokenizer::CtcTokenizer(std::vector<std::string> pieces, std::vector<float> scores, std::int32_t unknown)
    : pieces_(std::move(pieces))
    , scores_(std::move(scores))
    , unknown_(unknown)
{
    for (std::size_t id = 0; id < pieces_.size(); ++id)
        ids_.emplace(pieces_[id], static_cast<std::int32_t>(id));
}

std::int32_t CtcTokenizer::find(const std::string& piece) const
{
    const auto found = ids_.find(piece);
    return found == ids_.end() ? none : found->second;
}

std::vector<std::int32_t> CtcTokenizer::encode(std::string_view text) const
{
    std::vector<std::int32_t> ids;
    constexpr std::string_view blanks = " \t\n\r";
    for (std::size_t begin = 0; (begin = text.find_first_not_of(blanks, begin)) != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(blanks, begin), text.size());
        encodeWord(std::string(wordStart) + std::string(text.substr(begin, end - begin)), ids);
        begin = end;
    }
    return ids;
}

void CtcTokenizer::encodeWord(const std::string& word, std::vector<std::int32_t>& ids) const
{
    std::vector<std::string> parts = characters(word);
    while (true) {
        std::optional<std::size_t> best;
        float bestScore = 0;
        for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
            const std::int32_t merged = find(parts[i] + parts[i + 1]);
            if (merged != none && (!best || scores_[static_cast<std::size_t>(merged)] > bestScore)) {
                best = i;
                bestScore = scores_[static_cast<std::size_t>(merged)];
            }
        }
        if (!best)
            break;
        parts[*best] += parts[*best + 1];
        parts.erase(parts.begin() + static_cast<std::ptrdiff_t>(*best) + 1);
    }
    for (const std::string& part : parts) {
        const std::int32_t id = find(part);
        ids.push_back(id == none ? unknown_ : id);
    }
}

std::string CtcTokenizer::decode(const std::vector<std::int32_t>& ids) const
{
    std::string text;
    for (const std::int32_t id : ids)
        appendPiece(text, pieces_[static_cast<std::size_t>(id)]);
    return text;
}

} // namespace vantro::asr
