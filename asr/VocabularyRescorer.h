#pragma once

#include "asr/ASRResult.h"
#include "asr/BKTree.h"
#include "asr/CtcModel.h"
#include "asr/CtcSounds.h"
#include "asr/CustomVocabulary.h"
#include "asr/Transcript.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

namespace vantro::asr {

/// A place where a term may have been said.
struct ConsideredTerm
{
    std::string term;
    std::string heard; ///< the words there
    Seconds start{};
    Seconds end{};
    float similarity = 0;  ///< 0..1, of the better of spelling and sound
    float scoreBefore = 0; ///< logarithm of the likelihood of the passage as it was heard
    float scoreAfter = 0;  ///< with the term
    float bias = 0;        ///< added to the latter
    bool isReplaced = false;
};

/// A way to say a term.
struct VocabularyForm
{
    std::size_t term = 0;
    std::string text;
    std::u32string letters;
    std::vector<std::int32_t> sounds;
};

struct RescoreOutput
{
    std::string text;
    std::vector<TokenTiming> timings; ///< a term that was written is one token
    std::vector<ConsideredTerm> replacements;
    std::vector<ConsideredTerm> considered; ///< the replacements, too
    bool wasModified = false;
};

/// Writes terms where they were said and something else was recognised. A place is found by sound (a term's sounds are
/// there in the CTC model's scores) or by spelling (the words look like the term); the passage with the term must then
/// be likelier, with a bias, than the passage as it was heard. Immutable; any thread.
class VocabularyRescorer
{
public:
    struct Configuration
    {
        bool usesTree = true; ///< to look for similar spellings; otherwise all terms are compared
        std::size_t contextWords = 4;
        std::size_t spanWords = 4;      ///< that a term can replace
        float certainSimilarity = 0.9F; ///< words that sound like this are not compared by spelling
    };

    VocabularyRescorer(std::shared_ptr<const CtcModel> model, CustomVocabularyContext context,
                       const Configuration& configuration);
    VocabularyRescorer(std::shared_ptr<const CtcModel> model, CustomVocabularyContext context);

    struct Parameters
    {
        float contextBiasingWeight = 2.0F;
        Seconds tolerance{0.1}; ///< around each word's time
        float minSimilarity = 0.7F;
    };

    /// Whether there is a way to say @p term that has a token and is long enough.
    [[nodiscard]] bool looksFor(const std::string& term) const;
    /// @p text and @p timings: an ASRResult's.
    [[nodiscard]] RescoreOutput rescore(const std::string& text, std::span<const TokenTiming> timings,
                                        const CtcLogProbabilities& logProbs, const Parameters& parameters) const;

private:
    friend class Rescoring;

    void addForm(std::size_t term, const std::string& text);

    std::shared_ptr<const CtcModel> model_;
    CustomVocabularyContext context_;
    Configuration configuration_;
    CtcSounds sounds_;
    std::unordered_set<std::string> texts_; ///< the terms'
    std::vector<VocabularyForm> forms_;
    BKTree tree_;             ///< of the forms' letters
    std::size_t longest_ = 0; ///< of the forms, in letters
};

} // namespace vantro::asr
