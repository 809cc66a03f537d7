#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vantro::asr {

class ModelSource;

/// Log-mel features as the Parakeet models expect them: pre-emphasis of 0.97, windowed frames every 10 ms, power
/// spectrum, mel bands, natural logarithm, and each band normalised to mean 0 and deviation 1 over the recording.
/// Immutable and thread-safe.
class Preprocessor
{
public:
    static constexpr std::size_t hopSamples = 160;
    /// Shorter audio has no standard deviation to normalise by.
    static constexpr std::size_t minimumSamples = 2 * hopSamples;

    struct Features
    {
        std::size_t frames = 0;
        std::vector<float> values; ///< [frame][band]
    };

    explicit Preprocessor(const ModelSource& model);

    [[nodiscard]] std::size_t bands() const { return bands_.size(); }
    /// @p samples: 16 kHz mono, at least minimumSamples. Returns samples / 160 + 1 frames. Throws
    /// ASRError::invalidAudioData for audio that is too short or not finite.
    [[nodiscard]] Features process(std::span<const float> samples) const;

private:
    /// One mel band's weights without leading and trailing zeros.
    struct Band
    {
        std::size_t firstBin = 0;
        std::vector<float> weights;
    };

    void powerSpectrum(std::span<const float> frame, std::vector<double>& work, std::vector<float>& power) const;
    void normalise(Features& features, std::size_t countedFrames) const;

    std::vector<Band> bands_;
    std::vector<float> window_;    ///< zero-padded on both sides to the FFT size
    std::vector<double> twiddles_; ///< cosine and negative sine of 2 pi k / size, interleaved
    std::vector<std::uint32_t> bitReversal_;
};

} // namespace vantro::asr
