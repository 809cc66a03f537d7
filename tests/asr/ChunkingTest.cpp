// Recordings that are longer than the model's window.
#include "asr/Seam.h"
#include "tests/asr/AsrTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <sstream>
#include <utility>

using namespace vantro::asr;
using namespace vantro::asr::testing;

namespace {

std::vector<std::string> words(const std::string& text)
{
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

/// Words that one text has and the other lacks, in the alignment with the fewest differences; another word in a word's
/// place does not count.
std::size_t lostOrDoubled(const std::vector<std::string>& expected, const std::vector<std::string>& found)
{
    struct Cost
    {
        std::size_t differences;
        std::size_t lostOrDoubled;
        auto operator<=>(const Cost&) const = default;
    };
    std::vector<Cost> row(found.size() + 1);
    for (std::size_t j = 0; j < row.size(); ++j)
        row[j] = {j, j};
    for (std::size_t i = 1; i <= expected.size(); ++i) {
        Cost diagonal = std::exchange(row[0], Cost{i, i});
        for (std::size_t j = 1; j < row.size(); ++j) {
            const std::size_t other = expected[i - 1] != found[j - 1] ? 1 : 0;
            const Cost best = std::min({Cost{diagonal.differences + other, diagonal.lostOrDoubled},
                                        Cost{row[j].differences + 1, row[j].lostOrDoubled + 1},
                                        Cost{row[j - 1].differences + 1, row[j - 1].lostOrDoubled + 1}});
            diagonal = std::exchange(row[j], best);
        }
    }
    return row.back().lostOrDoubled;
}

} // namespace

TEST(Chunking, EveryRecordingLengthAroundTheWindowIsReadToItsEnd)
{
    AsrManager manager;
    manager.initialize(loadMicro());
    const std::vector<float> speech = recording("long-02.flac");
    const std::string whole = transcribe(manager, speech).text;
    for (const std::size_t samples : {239'999, 240'000, 240'001, 240'160, 241'280, 256'000, 447'360, 447'361}) {
        const ASRResult result = transcribe(manager, std::vector<float>(speech.begin(), speech.begin() + samples));
        const auto found = words(result.text);
        const auto expected = words(whole);
        ASSERT_GT(found.size(), 20U) << samples;
        // All but the last word, which may be cut in two, begin the whole text.
        const std::vector<std::string> head(expected.begin(), expected.begin() + std::ssize(found) - 1);
        EXPECT_LE(lostOrDoubled(head, {found.begin(), found.end() - 1}), 1U) << samples << ": " << result.text;
        EXPECT_GT(result.tokenTimings->back().endTime, result.duration - Seconds(3)) << samples;
    }
}

TEST(Chunking, WindowsFollowEachOtherByAStrideAndReachTheEnd)
{
    constexpr std::int64_t chunk = 239'360;
    constexpr std::int64_t stride = 207'360;
    using Windows = std::vector<std::pair<std::int64_t, std::int64_t>>;
    const auto windowsOf = [](std::int64_t samples) {
        ChunkProcessor chunks({}, true);
        Windows windows;
        const auto add = [&](const WindowSamples& cut) {
            EXPECT_EQ(std::ssize(cut.samples), cut.window.end - cut.window.begin);
            EXPECT_EQ(cut.samples.front(), static_cast<float>(cut.window.begin));
            windows.emplace_back(cut.window.begin, cut.window.end);
        };
        constexpr std::int64_t step = 101;
        for (std::int64_t i = 0; i < samples; i += step) {
            std::vector<float> piece(static_cast<std::size_t>(std::min(step, samples - i)));
            std::iota(piece.begin(), piece.end(), static_cast<float>(i));
            chunks.append(piece);
            if (const auto cut = chunks.next())
                add(*cut);
        }
        if (const auto cut = chunks.rest())
            add(*cut);
        return windows;
    };
    EXPECT_EQ(windowsOf(chunk), (Windows{{0, chunk}}));
    EXPECT_EQ(windowsOf(240'000), (Windows{{0, 240'000}}));
    EXPECT_EQ(windowsOf(240'001), (Windows{{0, chunk}, {stride, 240'001}}));
    EXPECT_EQ(windowsOf(chunk + stride), (Windows{{0, chunk}, {stride, chunk + stride}}));
    EXPECT_EQ(windowsOf(chunk + stride + 1),
              (Windows{{0, chunk}, {stride, chunk + stride}, {2 * stride, chunk + stride + 1}}));
}

TEST(Chunking, TheSeamLeavesOutNoWordAndTakesNoneTwice)
{
    const std::vector<std::string> vocabulary = {"\u2581a", "b", "\u2581c", "\u2581d"};
    // The text that is left of the two windows' tokens, given as id and frame; the range's middle is 120.
    using Tokens = std::vector<std::pair<std::int32_t, std::int32_t>>;
    const auto joined = [&](const Tokens& earlier, const Tokens& later) {
        const auto decoded = [](const Tokens& tokens) {
            std::vector<DecodedToken> result;
            for (const auto& [id, frame] : tokens)
                result.push_back({id, frame, 2, 1});
            return result;
        };
        const Seam seam = chooseSeam(decoded(earlier), decoded(later), {100, 140}, vocabulary);
        std::string text;
        for (std::size_t i = 0; i < seam.kept; ++i)
            text += vocabulary[static_cast<std::size_t>(earlier[i].first)];
        text += '|';
        for (std::size_t i = seam.dropped; i < later.size(); ++i)
            text += vocabulary[static_cast<std::size_t>(later[i].first)];
        return text;
    };
    EXPECT_EQ(joined({}, {}), "|");
    // Both heard the same, the later window a little later, and the same word stands twice.
    EXPECT_EQ(joined({{0, 104}, {2, 112}, {2, 122}, {3, 134}}, {{0, 106}, {2, 115}, {2, 124}, {3, 136}}),
              "\u2581a\u2581c|\u2581c\u2581d");
    // At the windows' edges one of them is wrong.
    EXPECT_EQ(joined({{0, 104}, {2, 116}, {0, 124}, {0, 138}}, {{3, 101}, {2, 116}, {0, 124}, {3, 134}}),
              "\u2581a\u2581c|\u2581a\u2581d");
    // A word that began before the range belongs to the earlier window, whatever the later one makes of its end.
    EXPECT_EQ(joined({{1, 101}, {0, 126}, {1, 129}}, {{1, 102}, {0, 126}, {1, 129}}), "b|\u2581ab");
    // They agree on nothing: what both have in one place is taken once.
    EXPECT_EQ(joined({{0, 118}, {1, 121}}, {{2, 119}}).size(), std::string("|\u2581c").size());
    // Only one window heard anything, and nearer to its own side.
    EXPECT_EQ(joined({{0, 104}}, {}), "\u2581a|");
    EXPECT_EQ(joined({}, {{0, 134}}), "|\u2581a");
    const FrameRange range = seamSearchRange({0, 200}, {});
    EXPECT_EQ(range.begin, 80);
    EXPECT_EQ(range.end, 120);
    EXPECT_EQ(seamSearchRange({162, 187}, {}).begin, 162);
}
