#include "asr/Seam.h"

#include <algorithm>
#include <cstdlib>

namespace vantro::asr {

namespace {

constexpr std::string_view wordStart = "\u2581";

std::int32_t middle(FrameRange range)
{
    return range.begin + (range.end - range.begin) / 2;
}

bool startsWord(const DecodedToken& token, std::span<const std::string> vocabulary)
{
    const auto id = static_cast<std::size_t>(token.id);
    return id < vocabulary.size() && vocabulary[id].starts_with(wordStart);
}

} // namespace

FrameRange seamSearchRange(FrameRange overlap, const TdtConfig& config)
{
    const std::int32_t reach = std::min(config.boundarySearchFrames, (overlap.end - overlap.begin) / 4);
    const std::int32_t centre = middle(overlap);
    return {centre - reach, centre + reach};
}

Seam chooseSeam(std::span<const DecodedToken> tokens, FrameRange range, std::span<const std::string> vocabulary)
{
    Seam best{middle(range), 0};
    for (const DecodedToken& token : tokens)
        best.kept += token.frame < best.frame ? 1 : 0;
    std::int32_t widest = -1;
    std::int32_t gapBegin = range.begin;
    for (std::size_t i = 0; i <= tokens.size(); ++i) {
        const std::int32_t gapEnd = i < tokens.size() ? tokens[i].frame : range.end;
        const bool isBetweenWords = i == tokens.size() || startsWord(tokens[i], vocabulary);
        if (isBetweenWords && gapEnd - gapBegin > widest) {
            widest = gapEnd - gapBegin;
            best = {gapBegin + (gapEnd - gapBegin) / 2, i};
        }
        if (i < tokens.size())
            gapBegin = std::max(gapBegin, tokens[i].frame + tokens[i].duration);
    }
    return best;
}

} // namespace vantro::asr
