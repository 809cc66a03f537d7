#include "asr/VocabularyRescorer.h"

#include "asr/Rescoring.h"
#include "asr/Spelling.h"

#include <algorithm>
#include <utility>

namespace vantro::asr {

namespace {

/// Bytes. Longer ones are no words but a mistake, and take minutes to tokenise.
constexpr std::size_t longestTerm = 1'000;

} // namespace

CustomVocabularyContext tokenised(std::vector<CustomVocabularyTerm> terms, const CtcTokenizer& tokenizer)
{
    CustomVocabularyContext context;
    const CtcSounds sounds(tokenizer);
    const auto canBeSaid = [&](const std::string& text) {
        return !sounds.of(text).empty();
    };
    const auto isTooLong = [](const std::string& text) {
        return text.size() > longestTerm;
    };
    for (CustomVocabularyTerm& term : terms) {
        std::erase_if(term.aliases, isTooLong);
        if (isTooLong(term.text))
            continue;
        term.ctcTokenIds = tokenizer.encode(term.text);
        std::erase(term.ctcTokenIds, tokenizer.unknownPiece());
        if (canBeSaid(term.text) || std::ranges::any_of(term.aliases, canBeSaid))
            context.terms.push_back(std::move(term));
    }
    return context;
}

VocabularyRescorer::VocabularyRescorer(std::shared_ptr<const CtcModel> model, CustomVocabularyContext context)
    : VocabularyRescorer(std::move(model), std::move(context), Configuration())
{
}

VocabularyRescorer::VocabularyRescorer(std::shared_ptr<const CtcModel> model, CustomVocabularyContext context,
                                       const Configuration& configuration)
    : model_(std::move(model))
    , context_(std::move(context))
    , configuration_(configuration)
    , sounds_(model_->tokenizer())
{
    for (std::size_t i = 0; i < context_.terms.size(); ++i) {
        const CustomVocabularyTerm& term = context_.terms[i];
        texts_.insert(term.text);
        addForm(i, term.text);
        for (const std::string& alias : term.aliases)
            addForm(i, alias);
    }
}

void VocabularyRescorer::addForm(std::size_t term, const std::string& text)
{
    VocabularyForm form{term, text, lettersOf(text), sounds_.of(text)};
    if (form.letters.size() < context_.minTermLength || form.sounds.empty())
        return;
    tree_.add(form.letters, forms_.size());
    longest_ = std::max(longest_, form.letters.size());
    forms_.push_back(std::move(form));
}

bool VocabularyRescorer::looksFor(const std::string& term) const
{
    return std::ranges::any_of(forms_,
                               [&](const VocabularyForm& form) { return context_.terms[form.term].text == term; });
}

RescoreOutput VocabularyRescorer::rescore(const std::string& text, std::span<const TokenTiming> timings,
                                          const CtcLogProbabilities& logProbs, const Parameters& parameters) const
{
    const std::vector<TranscriptWord> words = transcriptWords(text, timings);
    if (words.empty() || logProbs.frames == 0)
        return {text, {timings.begin(), timings.end()}, {}, {}, false};
    return Rescoring(*this, parameters, words, timings, logProbs).run();
}

} // namespace vantro::asr
