#include "asr/CtcDPAlgorithm.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vantro::asr {

namespace {

constexpr float impossible = -1e30F;

float logAdd(float a, float b)
{
    const float larger = std::max(a, b);
    return larger <= impossible ? impossible : larger + std::log1p(std::exp(std::min(a, b) - larger));
}

/// The tokens with a blank before, between and after them.
std::vector<std::size_t> withBlanks(std::span<const std::int32_t> tokens, std::int32_t blank)
{
    std::vector<std::size_t> states = {static_cast<std::size_t>(blank)};
    for (const std::int32_t token : tokens) {
        states.push_back(static_cast<std::size_t>(token));
        states.push_back(static_cast<std::size_t>(blank));
    }
    return states;
}

/// Follows the best path of a sequence of sounds from frame to frame. State 2 i is the i-th sound, the odd ones are the
/// silence between two.
class PathSearch
{
public:
    PathSearch(const SoundScores& scores, std::span<const std::int32_t> sounds, float worst)
        : worst_(worst)
        , silence_(scores.row(SoundScores::silence))
        , best_(2 * sounds.size() - 1, impossible)
        , begins_(best_.size())
    {
        for (std::size_t i = 0; i < sounds.size(); ++i) {
            rows_.push_back(scores.row(sounds[i]));
            mayFollow_.push_back(i > 0 && sounds[i] != sounds[i - 1]);
        }
    }

    /// Whether nothing but a new beginning can come of this frame.
    [[nodiscard]] bool isIdle() const { return !isAlive_; }
    [[nodiscard]] bool canBegin(std::size_t frame) const { return rows_.front()[frame] >= worst_; }
    [[nodiscard]] float endScore() const { return best_.back(); }
    [[nodiscard]] std::size_t endBegin() const { return begins_.back(); }

    void advance(std::size_t frame)
    {
        isAlive_ = false;
        for (std::size_t state = best_.size(); state-- > 0;) {
            std::size_t from = state;
            if (state > 0 && best_[state - 1] > best_[from])
                from = state - 1;
            if (state % 2 == 0 && mayFollow_[state / 2] && best_[state - 2] > best_[from])
                from = state - 2;
            float score = best_[from];
            std::size_t begin = begins_[from];
            if (state == 0 && score < 0) {
                score = 0;
                begin = frame;
            }
            score += state % 2 == 0 ? rows_[state / 2][frame] : silence_[frame];
            best_[state] = score >= worst_ ? score : impossible;
            begins_[state] = begin;
            isAlive_ = isAlive_ || score >= worst_;
        }
    }

private:
    float worst_;
    const float* silence_;
    std::vector<const float*> rows_;
    std::vector<bool> mayFollow_; ///< the sound before it at once
    std::vector<float> best_;
    std::vector<std::size_t> begins_; ///< of the best paths
    bool isAlive_ = false;
};

} // namespace

float CtcDPAlgorithm::logLikelihood(const CtcLogProbabilities& logProbs, CtcFrames frames,
                                    std::span<const std::int32_t> tokens, std::int32_t blank)
{
    const std::vector<std::size_t> states = withBlanks(tokens, blank);
    std::vector<float> sums(states.size(), impossible);
    for (std::size_t frame = frames.begin; frame < frames.end; ++frame) {
        const auto values = logProbs.frame(frame);
        if (frame == frames.begin) {
            for (std::size_t state = 0; state < std::min<std::size_t>(states.size(), 2); ++state)
                sums[state] = values[states[state]];
            continue;
        }
        for (std::size_t state = states.size(); state-- > 0;) {
            float sum = sums[state];
            if (state > 0)
                sum = logAdd(sum, sums[state - 1]);
            if (state > 2 && state % 2 == 1 && states[state] != states[state - 2])
                sum = logAdd(sum, sums[state - 2]);
            sums[state] = std::max(sum + values[states[state]], impossible);
        }
    }
    return sums.size() == 1 ? sums.back() : logAdd(sums.back(), sums[sums.size() - 2]);
}

std::vector<CtcDPAlgorithm::Occurrence> CtcDPAlgorithm::occurrences(const SoundScores& scores, CtcFrames frames,
                                                                    std::span<const std::int32_t> sounds, float worst)
{
    std::vector<Occurrence> found;
    if (sounds.empty() || sounds.size() > frames.end - frames.begin)
        return found;
    PathSearch search(scores, sounds, worst);
    for (std::size_t frame = frames.begin; frame < frames.end; ++frame) {
        if (search.isIdle() && !search.canBegin(frame))
            continue;
        search.advance(frame);
        if (search.endScore() < worst)
            continue;
        const Occurrence occurrence{search.endScore(), {search.endBegin(), frame + 1}};
        if (found.empty() || found.back().frames.end <= occurrence.frames.begin)
            found.push_back(occurrence);
        else if (occurrence.score > found.back().score)
            found.back() = occurrence;
    }
    return found;
}

} // namespace vantro::asr
