#include "asr/Seam.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace vantro::asr {

namespace {

constexpr std::string_view wordStart = "\u2581";
// How far apart in time words of the two windows may be paired: the same word, or different ones.
constexpr std::int32_t sameWordFrames = 6;
constexpr std::int32_t otherWordFrames = 1;
// Penalties for a disagreement next to the seam, in frames of distance from the centre.
constexpr std::int32_t differentWordFrames = 8;
constexpr std::int32_t loneWordFrames = 12;

struct Word
{
    std::size_t firstToken = 0;
    std::int32_t begin = 0; ///< frames
    std::int32_t end = 0;
    std::string text;
};

/// One aligned position of the transcript; one of the windows may have no word there.
struct Column
{
    const Word* earlier = nullptr;
    const Word* later = nullptr;

    [[nodiscard]] std::int32_t begin() const
    {
        return std::min(earlier != nullptr ? earlier->begin : later->begin,
                        later != nullptr ? later->begin : earlier->begin);
    }
    [[nodiscard]] std::int32_t end() const
    {
        return std::max(earlier != nullptr ? earlier->end : later->end, later != nullptr ? later->end : earlier->end);
    }
    [[nodiscard]] bool isAgreed() const
    {
        return earlier != nullptr && later != nullptr && earlier->text == later->text;
    }
    [[nodiscard]] std::int32_t penalty() const
    {
        if (earlier == nullptr || later == nullptr)
            return loneWordFrames;
        return isAgreed() ? 0 : differentWordFrames;
    }
};

/// Skips leading tokens that continue an earlier word.
std::vector<Word> wordsOf(std::span<const DecodedToken> tokens, std::span<const std::string> vocabulary)
{
    std::vector<Word> words;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const std::string& piece = vocabulary[static_cast<std::size_t>(tokens[i].id)];
        if (piece.starts_with(wordStart))
            words.push_back({i, tokens[i].frame, tokens[i].frame, {}});
        else if (words.empty())
            continue;
        words.back().end = tokens[i].frame + std::max(tokens[i].duration, 1);
        words.back().text += piece;
    }
    return words;
}

bool meet(const Word& a, const Word& b)
{
    const std::int32_t tolerance = a.text == b.text ? sameWordFrames : otherWordFrames;
    return a.begin < b.end + tolerance && b.begin < a.end + tolerance;
}

/// The pairs of the minimum edit-distance alignment in which paired words must overlap in time.
std::vector<Column> pairs(std::span<const Word> earlier, std::span<const Word> later)
{
    const std::size_t width = later.size() + 1;
    std::vector<std::size_t> cost((earlier.size() + 1) * width);
    const auto at = [&](std::size_t i, std::size_t j) -> std::size_t& {
        return cost[i * width + j];
    };
    // Filled from the end, so that the path can be read forwards.
    const auto pairCost = [&](std::size_t i, std::size_t j) {
        return meet(earlier[i], later[j]) ? at(i + 1, j + 1) + (earlier[i].text == later[j].text ? 0 : 1)
                                          : std::numeric_limits<std::size_t>::max();
    };
    for (std::size_t i = earlier.size() + 1; i-- > 0;) {
        for (std::size_t j = width; j-- > 0;) {
            if (i == earlier.size() || j == later.size())
                at(i, j) = earlier.size() - i + later.size() - j;
            else
                at(i, j) = std::min({pairCost(i, j), at(i + 1, j) + 1, at(i, j + 1) + 1});
        }
    }
    std::vector<Column> result;
    for (std::size_t i = 0, j = 0; i < earlier.size() && j < later.size();) {
        if (pairCost(i, j) == at(i, j))
            result.push_back({&earlier[i++], &later[j++]});
        else if (at(i + 1, j) + 1 == at(i, j))
            ++i;
        else
            ++j;
    }
    return result;
}

/// The pairs and, between them in time order, the words that only one window has.
std::vector<Column> columns(std::span<const Word> earlier, std::span<const Word> later)
{
    std::vector<Column> result;
    auto nextEarlier = earlier.begin();
    auto nextLater = later.begin();
    const auto addLoneWords = [&](auto endEarlier, auto endLater) {
        while (nextEarlier != endEarlier || nextLater != endLater) {
            if (nextLater == endLater || (nextEarlier != endEarlier && nextEarlier->begin < nextLater->begin))
                result.push_back({&*nextEarlier++, nullptr});
            else
                result.push_back({nullptr, &*nextLater++});
        }
    };
    for (const Column& pair : pairs(earlier, later)) {
        addLoneWords(earlier.begin() + (pair.earlier - earlier.data()), later.begin() + (pair.later - later.data()));
        result.push_back({&*nextEarlier++, &*nextLater++});
    }
    addLoneWords(earlier.end(), later.end());
    return result;
}

/// The cost of a seam before column @p index; 0 is best.
std::int32_t costOf(std::span<const Column> columns, std::size_t index, FrameRange range)
{
    const Column* left = index > 0 ? &columns[index - 1] : nullptr;
    const Column* right = index < columns.size() ? &columns[index] : nullptr;
    const std::int32_t gapBegin = left != nullptr ? left->end() : range.begin;
    const std::int32_t gapEnd = std::max(right != nullptr ? right->begin() : range.end, gapBegin);
    const std::int32_t middle = range.begin + (range.end - range.begin) / 2;
    return std::max({gapBegin - middle, middle - gapEnd, 0}) + (left != nullptr ? left->penalty() : 0) +
           (right != nullptr ? right->penalty() : 0);
}

} // namespace

FrameRange seamSearchRange(FrameRange overlap, const TdtConfig& config)
{
    const std::int32_t middle = overlap.begin + (overlap.end - overlap.begin) / 2;
    return {std::max(overlap.begin, middle - config.boundarySearchFrames),
            std::min(overlap.end, middle + config.boundarySearchFrames)};
}

Seam chooseSeam(std::span<const DecodedToken> earlier, std::span<const DecodedToken> later, FrameRange range,
                std::span<const std::string> vocabulary)
{
    const std::vector<Word> before = wordsOf(earlier, vocabulary);
    const std::vector<Word> after = wordsOf(later, vocabulary);
    const std::vector<Column> places = columns(before, after);
    std::size_t best = 0;
    for (std::size_t i = 1; i <= places.size(); ++i) {
        if (costOf(places, i, range) < costOf(places, best, range))
            best = i;
    }
    const auto left = std::span(places).first(best);
    const auto right = std::span(places).subspan(best);
    const auto ofEarlier = std::ranges::find_if(right, [](const Column& place) { return place.earlier != nullptr; });
    const auto ofLater = std::ranges::find_if(right, [](const Column& place) { return place.later != nullptr; });
    const auto disagreed = [](const Column& place) {
        return !place.isAgreed();
    };
    Seam seam;
    seam.kept = ofEarlier != right.end() ? ofEarlier->earlier->firstToken : earlier.size();
    seam.dropped = ofLater != right.end() ? ofLater->later->firstToken : later.size();
    seam.agreed = static_cast<std::size_t>((std::ranges::find_if(right, disagreed) - right.begin()) +
                                           (std::find_if(left.rbegin(), left.rend(), disagreed) - left.rbegin()));
    return seam;
}

} // namespace vantro::asr
