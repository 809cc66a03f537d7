#pragma once

#include "asr/VocabularyRescorer.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <span>
#include <utility>
#include <vector>

namespace vantro::asr {

/// One transcript on its way through a VocabularyRescorer, which must outlive it like the other arguments. One thread.
class Rescoring
{
public:
    Rescoring(const VocabularyRescorer& rescorer, const VocabularyRescorer::Parameters& parameters,
              std::span<const TranscriptWord> words, std::span<const TokenTiming> timings,
              const CtcLogProbabilities& logProbs);

    [[nodiscard]] RescoreOutput run();

private:
    /// Words [begin, end).
    struct Span
    {
        std::size_t begin = 0;
        std::size_t end = 0;
        auto operator<=>(const Span&) const = default;
    };
    struct Candidate
    {
        std::size_t term = 0;
        Span span;
        ConsideredTerm found;
        [[nodiscard]] float gain() const { return found.scoreAfter + found.bias - found.scoreBefore; }
    };

    void protectWrittenTerms();
    void findBySound();
    void findBySpelling();
    void compareSpelling(Span span);
    void consider(std::size_t form, Span span, float similarity);
    void judge(Candidate& candidate) const;
    [[nodiscard]] RescoreOutput replaced();

    [[nodiscard]] bool isReplaceable(Span span) const;
    [[nodiscard]] std::vector<Span> spansWithin(CtcFrames frames) const;
    [[nodiscard]] bool isCertain(std::size_t word) const;
    [[nodiscard]] CtcFrames framesOf(Span span, Seconds tolerance) const;
    [[nodiscard]] CtcFrames framesAround(Span context) const;
    [[nodiscard]] Span contextOf(Span span) const;
    [[nodiscard]] float minimumSimilarity(std::size_t term) const;
    /// Mean score of a form's sounds in the best place within the span's frames; below every limit if there is none.
    [[nodiscard]] float soundScore(const VocabularyForm& form, Span span) const;
    [[nodiscard]] float heardScore(Span span);
    [[nodiscard]] float scoreWith(Span span, const std::string& form) const;
    void append(RescoreOutput& output, Span span, const std::string& text, bool isTerm) const;
    [[nodiscard]] std::string written(std::size_t term, Span span) const;

    const VocabularyRescorer& rescorer_;
    const CustomVocabularyContext& context_;
    VocabularyRescorer::Parameters parameters_;
    std::span<const TranscriptWord> words_;
    std::span<const TokenTiming> timings_;
    const CtcLogProbabilities& logProbs_;
    SoundScores scores_;
    std::vector<bool> isProtected_;                                ///< words of terms that are written right already
    std::map<Span, float> heardScores_;                            ///< that have been needed
    std::map<std::pair<std::size_t, Span>, Candidate> candidates_; ///< by term and place
};

} // namespace vantro::asr
