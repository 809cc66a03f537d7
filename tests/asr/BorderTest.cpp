// What happens to words where one window of a long recording goes over into the next.
//
// A window that hears the place without a border is the measure: the two windows that meet there, each read alone, and
// a third one that has the border in its middle. The model hears some words differently in each of them; what the
// border itself did shows where all three agree.
#include "tests/asr/AsrTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

using namespace vantro::asr;
using namespace vantro::asr::testing;

namespace {

constexpr double samplesPerSecond = 16'000;
constexpr double reachSeconds = 1.0;
constexpr double toleranceSeconds = 0.16; ///< two frames

struct Word
{
    std::string text;
    double begin = 0; ///< seconds from the start of the recording
    double end = 0;

    [[nodiscard]] double middle() const { return (begin + end) / 2; }
    [[nodiscard]] bool meets(const Word& other) const
    {
        return begin < other.end + toleranceSeconds && other.begin < end + toleranceSeconds;
    }
};
using Words = std::vector<Word>;

bool hasPlaceOf(const Words& words, const Word& wanted)
{
    return std::ranges::any_of(words, [&](const Word& word) { return word.meets(wanted); });
}

bool has(const Words& words, const Word& wanted)
{
    return std::ranges::any_of(words, [&](const Word& word) { return word.text == wanted.text && word.meets(wanted); });
}

Words around(const Words& words, double place, double reach)
{
    Words result;
    std::ranges::copy_if(words, std::back_inserter(result),
                         [&](const Word& word) { return std::abs(word.middle() - place) < reach; });
    return result;
}

std::ptrdiff_t countOf(const Words& words, const std::string& text)
{
    return std::ranges::count(words, text, &Word::text);
}

std::string textOf(const Words& words)
{
    std::string text;
    for (const Word& word : words)
        text += (text.empty() ? "" : " ") + word.text;
    return text;
}

struct BorderFigures
{
    int borders = 0;
    int words = 0;
    int lost = 0;    ///< all windows without a border have it
    int doubled = 0; ///< it comes more often than in any of them
    int other = 0;   ///< more or fewer words than in the window around the border, for whatever reason
};

class Borders : public ::testing::Test
{
protected:
    Borders() { manager_.initialize(loadMicro()); }

    void examine(const std::vector<float>& samples, const std::string& name)
    {
        const Words joined = read(samples, 0, std::ssize(samples));
        const ChunkLayout layout = ChunkProcessor({}, true).layout(true, {});
        for (std::int64_t start = layout.stride; start + layout.overlap < std::ssize(samples); start += layout.stride) {
            const std::int64_t place = start + layout.overlap / 2;
            const std::int64_t centred = (place - layout.chunk / 2) / ChunkProcessor::frameSamples;
            const Words earlier = read(samples, start - layout.stride, layout.chunk);
            const Words later = read(samples, start, layout.chunk);
            const Words whole = read(samples, centred * ChunkProcessor::frameSamples, layout.chunk);
            compare(joined, {earlier, later, whole}, static_cast<double>(place) / samplesPerSecond, name);
        }
    }

    BorderFigures figures;

private:
    Words read(const std::vector<float>& samples, std::int64_t begin, std::int64_t count)
    {
        const std::int64_t end = std::min(begin + count, std::ssize(samples));
        const ASRResult result =
            transcribe(manager_, std::vector<float>(samples.begin() + begin, samples.begin() + end));
        const double shift = static_cast<double>(begin) / samplesPerSecond;
        Words words;
        for (const TokenTiming& timing : *result.tokenTimings) {
            if (timing.token.starts_with("\u2581") || words.empty())
                words.push_back({{}, timing.startTime.count() + shift, 0});
            words.back().text += timing.token;
            words.back().end = timing.endTime.count() + shift;
        }
        return words;
    }

    void compare(const Words& joined, const std::array<Words, 3>& alone, double place, const std::string& name)
    {
        ++figures.borders;
        const auto complain = [&](const char* what, const Word& word) {
            ADD_FAILURE() << word.text << " is " << what << " at " << place << " s of " << name << "\n"
                          << textOf(around(joined, place, 2)) << "\ninstead of\n"
                          << textOf(around(alone[2], place, 2));
        };
        for (const Word& word : around(alone[2], place, reachSeconds)) {
            ++figures.words;
            figures.other += hasPlaceOf(joined, word) ? 0 : 1;
            if (has(alone[0], word) && has(alone[1], word) && !has(joined, word)) {
                ++figures.lost;
                complain("lost", word);
            }
        }
        const Words here = around(joined, place, reachSeconds);
        for (const Word& word : here) {
            figures.other += hasPlaceOf(alone[2], word) ? 0 : 1;
            const bool isDoubled = std::ranges::all_of(alone, [&](const Words& words) {
                return countOf(here, word.text) > countOf(around(words, place, 1.5 * reachSeconds), word.text);
            });
            if (isDoubled && countOf(here, word.text) > 1) {
                ++figures.doubled;
                complain("doubled", word);
            }
        }
    }

    AsrManager manager_;
};

/// The hiss of a quiet room.
std::vector<float> hiss(std::size_t samples)
{
    std::minstd_rand random(1);
    std::uniform_real_distribution<float> level(-0.003F, 0.003F);
    std::vector<float> values(samples);
    for (float& value : values)
        value = level(random);
    return values;
}

/// All short recordings one after the other, in an order of its own for each @p seed.
std::vector<float> conversation(unsigned seed)
{
    std::vector<std::vector<float>> parts;
    for (const Expectation& expectation : expectations()) {
        if (expectation.file.starts_with("sentence") || expectation.file.starts_with("term"))
            parts.push_back(recording(expectation.file));
    }
    std::ranges::shuffle(parts, std::mt19937(seed));
    std::vector<float> samples;
    for (const std::vector<float>& part : parts)
        samples.insert(samples.end(), part.begin(), part.end());
    return samples;
}

} // namespace

TEST_F(Borders, LoseAndDoubleNoWordWhereverTheyFall)
{
    std::vector<std::pair<std::string, std::vector<float>>> recordings;
    for (const char* name : {"long-01.flac", "long-02.flac"})
        recordings.emplace_back(name, recording(name));
    for (const unsigned seed : {0U, 1U})
        recordings.emplace_back("conversation " + std::to_string(seed), conversation(seed));
    // Over a whole stride, so that the borders pass through every word; not at the phase of the model's frames.
    constexpr std::size_t step = 16'357;
    for (const auto& [name, speech] : recordings) {
        for (std::size_t before = 0; before < 207'360; before += step) {
            std::vector<float> samples = hiss(before);
            samples.insert(samples.end(), speech.begin(), speech.end());
            examine(samples, name + " behind " + std::to_string(before) + " samples");
        }
    }
    RecordProperty("borders", figures.borders);
    RecordProperty("words", figures.words);
    RecordProperty("other", figures.other);
    EXPECT_GT(figures.words, 500);
    EXPECT_EQ(figures.lost, 0);
    EXPECT_EQ(figures.doubled, 0);
    // Where the windows do not agree among themselves.
    EXPECT_LE(figures.other * 200, figures.words) << figures.other << " of " << figures.words;
}

TEST_F(Borders, LoseAndDoubleNoWordInTenMinutes)
{
    std::vector<float> samples;
    for (unsigned seed = 2; samples.size() < 600 * samplesPerSecond; ++seed) {
        const std::vector<float> part = conversation(seed);
        samples.insert(samples.end(), part.begin(), part.end());
    }
    samples.resize(static_cast<std::size_t>(600 * samplesPerSecond));
    examine(samples, "ten minutes");
    EXPECT_GE(figures.borders, 45);
    EXPECT_EQ(figures.lost, 0);
    EXPECT_EQ(figures.doubled, 0);
}
