#pragma once

#include <cstddef>
#include <deque>
#include <span>

namespace vantro {

/// Finds where speech ends in a recording that may still be going on, by level alone: a frame of 30 ms counts as
/// background when it is hardly louder than the quietest 120 ms of the last seconds and much quieter than the loudest
/// so far. What is not clearly background counts as speech, so noise as loud as the voice has no pauses. A frame is
/// judged by what came before it alone, so the judgement stands however the recording goes on, and does not depend on
/// the sizes in which its samples come. Any thread, one at a time.
class PauseDetector
{
public:
    /// How much background after speech is kept with it.
    static constexpr std::size_t tailCount = 1'600; // 0.1 s

    /// The next samples: 16 kHz mono.
    void hear(std::span<const float> samples);

    [[nodiscard]] std::size_t heardCount() const { return heard_; }
    /// The number of samples up to the end of the last speech.
    [[nodiscard]] std::size_t speechCount() const { return speech_; }
    [[nodiscard]] std::size_t pauseCount() const { return heard_ - speech_; }
    /// How many are worth recognising: speech with its tail; all of them when no speech stands out.
    [[nodiscard]] std::size_t usefulCount() const;

private:
    void judge(double meanSquare);
    [[nodiscard]] bool isBackground(double level) const;

    std::size_t heard_ = 0;
    std::size_t speech_ = 0;
    std::size_t inFrame_ = 0;
    double frameSum_ = 0;       ///< of squares
    std::deque<double> frames_; ///< mean squares of the last ones
    std::deque<double> floors_; ///< levels in dBFS, of the last seconds
    double loudest_ = -120;     ///< dBFS
};

/// PauseDetector::usefulCount() of a whole recording.
[[nodiscard]] std::size_t usefulSampleCount(std::span<const float> samples);

} // namespace vantro
