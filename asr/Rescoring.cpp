#include "asr/Rescoring.h"

#include "asr/Pieces.h"
#include "asr/Spelling.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace vantro::asr {

namespace {

/// Of a passage at either end of the recording, where nothing else is said.
constexpr Seconds silenceAround{1.0};

/// What is subtracted from how well a term's sounds fit, in nats: of many terms, one fits better by chance.
float crowding(std::size_t terms)
{
    constexpr float usual = 50;
    return std::log(std::max(static_cast<float>(terms) / usual, 1.0F));
}

float mean(float sum, std::size_t count)
{
    return sum / static_cast<float>(count);
}

/// A term without capitals of its own takes the one of the words it replaces.
std::string withCapitalOf(const std::string& heard, std::string term)
{
    const auto isCapital = [](char letter) {
        return letter >= 'A' && letter <= 'Z';
    };
    const bool hasOwn = std::ranges::any_of(term, isCapital);
    if (!hasOwn && !heard.empty() && isCapital(heard.front()) && term.front() >= 'a' && term.front() <= 'z')
        term.front() = static_cast<char>(term.front() - 'a' + 'A');
    return term;
}

} // namespace

Rescoring::Rescoring(const VocabularyRescorer& rescorer, const VocabularyRescorer::Parameters& parameters,
                     std::span<const TranscriptWord> words, std::span<const TokenTiming> timings,
                     const CtcLogProbabilities& logProbs)
    : rescorer_(rescorer)
    , context_(rescorer.context_)
    , parameters_(parameters)
    , words_(words)
    , timings_(timings)
    , logProbs_(logProbs)
    , scores_(rescorer.sounds_.scores(logProbs))
    , isProtected_(words.size())
{
}

RescoreOutput Rescoring::run()
{
    protectWrittenTerms();
    findBySound();
    findBySpelling();
    for (auto& [place, candidate] : candidates_)
        judge(candidate);
    return replaced();
}

void Rescoring::protectWrittenTerms()
{
    for (std::size_t begin = 0; begin < words_.size(); ++begin) {
        std::string text = words_[begin].prefix.empty() ? words_[begin].core : std::string();
        for (std::size_t end = begin + 1; !text.empty(); ++end) {
            if (rescorer_.texts_.contains(text))
                std::fill(isProtected_.begin() + static_cast<std::ptrdiff_t>(begin),
                          isProtected_.begin() + static_cast<std::ptrdiff_t>(end), true);
            if (end == words_.size() || end == begin + rescorer_.configuration_.spanWords)
                break;
            text += words_[end - 1].possessive + words_[end - 1].suffix + ' ' + words_[end].prefix + words_[end].core;
        }
    }
}

float Rescoring::minimumSimilarity(std::size_t term) const
{
    return context_.terms[term].minSimilarity.value_or(parameters_.minSimilarity);
}

void Rescoring::findBySound()
{
    for (std::size_t i = 0; i < rescorer_.forms_.size(); ++i) {
        const VocabularyForm& form = rescorer_.forms_[i];
        const float crowded = crowding(context_.terms.size());
        const float worst =
            (minimumSimilarity(form.term) - 1) * context_.alpha * static_cast<float>(form.sounds.size()) + crowded;
        for (const auto& place :
             CtcDPAlgorithm::occurrences(scores_, {0, scores_.frames}, form.sounds, std::min(worst, 0.0F))) {
            const float similarity = 1 + mean(place.score - crowded, form.sounds.size()) / context_.alpha;
            for (const Span span : spansWithin(place.frames))
                consider(i, span, similarity);
        }
    }
}

/// Runs of words that are said within @p frames.
std::vector<Rescoring::Span> Rescoring::spansWithin(CtcFrames frames) const
{
    std::vector<Span> spans;
    for (std::size_t begin = 0; begin < words_.size(); ++begin) {
        const CtcFrames first = framesOf({begin, begin + 1}, parameters_.tolerance);
        if (first.end <= frames.begin || first.begin >= frames.end)
            continue;
        for (std::size_t end = begin + 1; end <= words_.size() && end - begin <= rescorer_.configuration_.spanWords;
             ++end) {
            if (framesOf({end - 1, end}, parameters_.tolerance).begin >= frames.end)
                break;
            spans.push_back({begin, end});
        }
    }
    return spans;
}

void Rescoring::findBySpelling()
{
    std::vector<bool> isDoubtful(words_.size());
    for (std::size_t i = 0; i < words_.size(); ++i)
        isDoubtful[i] = !isCertain(i);
    for (std::size_t begin = 0; begin < words_.size(); ++begin) {
        bool hasDoubtful = false;
        for (std::size_t end = begin + 1; end <= words_.size() && end - begin <= rescorer_.configuration_.spanWords;
             ++end) {
            hasDoubtful = hasDoubtful || isDoubtful[end - 1];
            if (hasDoubtful && isReplaceable({begin, end}))
                compareSpelling({begin, end});
        }
    }
}

/// Whether the word sounds in the recording as it is written.
bool Rescoring::isCertain(std::size_t word) const
{
    const VocabularyForm form{0, {}, {}, rescorer_.sounds_.of(words_[word].core)};
    return !form.sounds.empty() &&
           1 + soundScore(form, {word, word + 1}) / context_.alpha >= rescorer_.configuration_.certainSimilarity;
}

void Rescoring::compareSpelling(Span span)
{
    const std::u32string letters = lettersOf(joined(words_, span.begin, span.end - 1) + words_[span.end - 1].core);
    const float lowest = parameters_.minSimilarity;
    // Words that similar differ by at most this share of these letters, even if the term is the longer one.
    const float share = (1 - lowest) / std::max(lowest, 0.1F);
    const auto limit = static_cast<std::size_t>(share * static_cast<float>(letters.size()) + 1e-3F);
    if (letters.empty() || letters.size() > rescorer_.longest_ + limit)
        return;
    const auto compare = [&](std::size_t form, std::size_t /*distance*/) {
        const VocabularyForm& candidate = rescorer_.forms_[form];
        const float similarity = spellingSimilarity(letters, candidate.letters);
        if (similarity >= minimumSimilarity(candidate.term))
            consider(form, span, similarity);
    };
    if (rescorer_.configuration_.usesTree) {
        rescorer_.tree_.find(letters, limit, compare);
        return;
    }
    for (std::size_t i = 0; i < rescorer_.forms_.size(); ++i)
        compare(i, 0);
}

bool Rescoring::isReplaceable(Span span) const
{
    for (std::size_t i = span.begin; i < span.end; ++i) {
        const bool isParted =
            (i + 1 < span.end && !words_[i].suffix.empty()) || (i > span.begin && !words_[i].prefix.empty());
        if (isProtected_[i] || isParted)
            return false;
    }
    return !words_[span.begin].core.empty() && !words_[span.end - 1].core.empty();
}

void Rescoring::consider(std::size_t form, Span span, float similarity)
{
    if (!isReplaceable(span))
        return;
    const VocabularyForm& way = rescorer_.forms_[form];
    const float score = soundScore(way, span) - mean(crowding(context_.terms.size()), way.sounds.size());
    if (score < context_.minCtcScore)
        return;
    similarity = std::max(similarity, 1 + score / context_.alpha);
    Candidate& candidate = candidates_[{way.term, span}];
    const float after = scoreWith(span, way.text);
    const bool isFirst = candidate.found.term.empty();
    candidate.term = way.term;
    candidate.span = span;
    ConsideredTerm& found = candidate.found;
    found.scoreAfter = isFirst ? after : std::max(found.scoreAfter, after);
    found.similarity = isFirst ? similarity : std::max(found.similarity, similarity);
    if (!isFirst)
        return;
    found.term = context_.terms[way.term].text;
    found.heard = joined(words_, span.begin, span.end);
    found.start = words_[span.begin].start;
    found.end = words_[span.end - 1].end;
    found.scoreBefore = heardScore(span);
    found.bias = parameters_.contextBiasingWeight * context_.terms[way.term].weight.value_or(1.0F);
}

void Rescoring::judge(Candidate& candidate) const
{
    const float gain = candidate.gain();
    const float likely = 1 / (1 + std::exp(-gain));
    const float confidence = 1 - (1 - likely) * (1 - candidate.found.similarity);
    candidate.found.isReplaced = gain > 0 && confidence >= context_.minCombinedConfidence;
}

float Rescoring::soundScore(const VocabularyForm& form, Span span) const
{
    const float worst = context_.minCtcScore * static_cast<float>(form.sounds.size());
    float best = std::numeric_limits<float>::lowest();
    for (const auto& place :
         CtcDPAlgorithm::occurrences(scores_, framesOf(span, parameters_.tolerance), form.sounds, worst))
        best = std::max(best, mean(place.score, form.sounds.size()));
    return best;
}

CtcFrames Rescoring::framesOf(Span span, Seconds tolerance) const
{
    const auto frameOf = [this](Seconds time) {
        const double frame =
            std::clamp(time / CtcLogProbabilities::frameDuration, 0.0, static_cast<double>(logProbs_.frames));
        return frame;
    };
    return {static_cast<std::size_t>(std::floor(frameOf(words_[span.begin].start - tolerance))),
            static_cast<std::size_t>(std::ceil(frameOf(words_[span.end - 1].end + tolerance)))};
}

Rescoring::Span Rescoring::contextOf(Span span) const
{
    const std::size_t around = rescorer_.configuration_.contextWords;
    return {span.begin - std::min(span.begin, around), std::min(span.end + around, words_.size())};
}

CtcFrames Rescoring::framesAround(Span context) const
{
    CtcFrames frames = framesOf(context, parameters_.tolerance);
    const CtcFrames wide = framesOf(context, silenceAround);
    if (context.begin == 0)
        frames.begin = wide.begin;
    if (context.end == words_.size())
        frames.end = wide.end;
    return frames;
}

float Rescoring::heardScore(Span span)
{
    const auto [known, isNew] = heardScores_.try_emplace(contextOf(span));
    if (isNew) {
        const Span context = known->first;
        const auto tokens = rescorer_.model_->tokenizer().encode(joined(words_, context.begin, context.end));
        known->second =
            CtcDPAlgorithm::logLikelihood(logProbs_, framesAround(context), tokens, rescorer_.model_->blankId());
    }
    return known->second;
}

float Rescoring::scoreWith(Span span, const std::string& form) const
{
    const Span context = contextOf(span);
    const TranscriptWord& last = words_[span.end - 1];
    const std::string text = joined(words_, context.begin, span.begin) + ' ' + words_[span.begin].prefix + form +
                             last.possessive + last.suffix + ' ' + joined(words_, span.end, context.end);
    const auto tokens = rescorer_.model_->tokenizer().encode(text);
    return CtcDPAlgorithm::logLikelihood(logProbs_, framesAround(context), tokens, rescorer_.model_->blankId());
}

std::string Rescoring::written(std::size_t term, Span span) const
{
    const TranscriptWord& first = words_[span.begin];
    const TranscriptWord& last = words_[span.end - 1];
    return first.prefix + withCapitalOf(first.core, context_.terms[term].text) + last.possessive + last.suffix;
}

void Rescoring::append(RescoreOutput& output, Span span, const std::string& text, bool isTerm) const
{
    // As in the recogniser's text, nothing separates an empty first word.
    if (!output.text.empty())
        output.text += ' ';
    output.text += text;
    const std::size_t first = words_[span.begin].firstToken;
    const auto tokens = timings_.subspan(first, words_[span.end - 1].endToken - first);
    if (!isTerm) {
        output.timings.insert(output.timings.end(), tokens.begin(), tokens.end());
        return;
    }
    TokenTiming token = tokens.front();
    token.token = std::string(wordStart) + text;
    token.endTime = words_[span.end - 1].end;
    output.timings.push_back(std::move(token));
}

/// Takes the likeliest first; what overlaps with it stays as it was heard.
RescoreOutput Rescoring::replaced()
{
    std::vector<Candidate*> wanted;
    for (auto& [place, candidate] : candidates_) {
        if (candidate.found.isReplaced)
            wanted.push_back(&candidate);
    }
    std::ranges::stable_sort(wanted, [](const Candidate* a, const Candidate* b) { return a->gain() > b->gain(); });
    std::map<std::size_t, const Candidate*> taken;
    for (Candidate* candidate : wanted) {
        const auto overlaps = [candidate](const auto& other) {
            return candidate->span.begin < other.second->span.end && other.second->span.begin < candidate->span.end;
        };
        candidate->found.isReplaced = std::ranges::none_of(taken, overlaps);
        if (candidate->found.isReplaced)
            taken[candidate->span.begin] = candidate;
    }
    RescoreOutput output;
    for (std::size_t i = 0; i < words_.size();) {
        const auto found = taken.find(i);
        const bool isTerm = found != taken.end();
        const Span span = isTerm ? found->second->span : Span{i, i + 1};
        append(output, span, isTerm ? written(found->second->term, span) : words_[i].text(), isTerm);
        i = span.end;
    }
    for (const auto& [place, candidate] : candidates_)
        output.considered.push_back(candidate.found);
    std::ranges::stable_sort(output.considered, {}, &ConsideredTerm::start);
    std::ranges::copy_if(output.considered, std::back_inserter(output.replacements), &ConsideredTerm::isReplaced);
    output.wasModified = !output.replacements.empty();
    return output;
}

} // namespace vantro::asr
