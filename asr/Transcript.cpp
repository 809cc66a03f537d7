#include "asr/Transcript.h"

#include "asr/Pieces.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace vantro::asr {

namespace {

/// All but ASCII's punctuation.
bool isOfWord(char byte)
{
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0x80 || std::isalnum(value) != 0;
}

TranscriptWord parted(std::string_view text)
{
    TranscriptWord word;
    const auto first = std::ranges::find_if(text, isOfWord);
    const auto last = std::find_if(text.rbegin(), std::make_reverse_iterator(first), isOfWord).base();
    word.prefix.assign(text.begin(), first);
    word.core.assign(first, last);
    word.suffix.assign(last, text.end());
    for (const std::string_view ending : std::array<std::string_view, 2>{"'s", "\u2019s"}) {
        if (word.core.size() > ending.size() && word.core.ends_with(ending)) {
            word.core.resize(word.core.size() - ending.size());
            word.possessive = ending;
        }
    }
    return word;
}

struct TimedText
{
    std::string text;
    Seconds start{};
    Seconds end{};
    std::size_t firstToken = 0;
    std::size_t endToken = 0;
};

std::vector<TimedText> timedTexts(std::span<const TokenTiming> timings)
{
    std::vector<TimedText> words;
    for (std::size_t i = 0; i < timings.size(); ++i) {
        const TokenTiming& timing = timings[i];
        const bool begins = timing.token.starts_with(wordStart);
        if (begins || words.empty())
            words.push_back({{}, timing.startTime, timing.endTime, i, i});
        words.back().endToken = i + 1;
        words.back().text += timing.token.substr(begins ? wordStart.size() : 0);
        words.back().end = std::max(words.back().end, timing.endTime);
    }
    return words;
}

} // namespace

std::vector<TranscriptWord> transcriptWords(const std::string& text, std::span<const TokenTiming> timings)
{
    const std::vector<TimedText> timed = timedTexts(timings);
    std::vector<TranscriptWord> words;
    std::string known;
    for (std::size_t i = 0; i < timed.size(); ++i) {
        if (i > 0 && !known.empty())
            known += ' ';
        known += timed[i].text;
        TranscriptWord word = parted(timed[i].text);
        word.start = timed[i].start;
        word.end = timed[i].end;
        word.firstToken = timed[i].firstToken;
        word.endToken = timed[i].endToken;
        words.push_back(std::move(word));
    }
    return known == text ? words : std::vector<TranscriptWord>();
}

std::string joined(std::span<const TranscriptWord> words, std::size_t begin, std::size_t end)
{
    std::string text;
    for (std::size_t i = begin; i < end; ++i) {
        if (!text.empty())
            text += ' ';
        text += words[i].text();
    }
    return text;
}

} // namespace vantro::asr
