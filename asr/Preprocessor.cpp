#include "asr/Preprocessor.h"

#include "asr/ASRError.h"
#include "asr/ModelSource.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

namespace vantro::asr {

namespace {

constexpr float preEmphasis = 0.97F;
constexpr float logGuard = 0x1p-24F;
constexpr double deviationGuard = 1e-5;

/// Pre-emphasised samples with half a frame of zero padding at both ends, so that frame n is centred on n hops.
std::vector<float> emphasised(std::span<const float> samples, std::size_t padding)
{
    std::vector<float> padded(samples.size() + 2 * padding, 0.0F);
    padded[padding] = samples[0];
    for (std::size_t i = 1; i < samples.size(); ++i)
        padded[padding + i] = samples[i] - preEmphasis * samples[i - 1];
    return padded;
}

} // namespace

Preprocessor::Preprocessor(const ModelSource& model)
{
    const auto size = static_cast<std::size_t>(model.encoderParameters().fftSize);
    const auto bins = static_cast<std::size_t>(model.encoderParameters().frequencyBins());
    const std::vector<float>& bank = model.filterBank();
    for (auto row = bank.begin(); row != bank.end(); row += static_cast<std::ptrdiff_t>(bins)) {
        const auto rowEnd = row + static_cast<std::ptrdiff_t>(bins);
        const auto isSet = [](float weight) {
            return weight != 0.0F;
        };
        const auto first = std::find_if(row, rowEnd, isSet);
        const auto last = std::find_if(std::make_reverse_iterator(rowEnd), std::make_reverse_iterator(first), isSet);
        bands_.push_back({static_cast<std::size_t>(first - row), std::vector<float>(first, last.base())});
    }
    window_.assign(size, 0.0F);
    std::ranges::copy(model.window(),
                      window_.begin() + static_cast<std::ptrdiff_t>((size - model.window().size()) / 2));
    for (std::size_t k = 0; k < size / 2; ++k) {
        const double angle = 2 * std::numbers::pi * static_cast<double>(k) / static_cast<double>(size);
        twiddles_.push_back(std::cos(angle));
        twiddles_.push_back(-std::sin(angle));
    }
    const int bits = std::countr_zero(size);
    for (std::uint32_t i = 0; i < size; ++i) {
        std::uint32_t reversed = 0;
        for (int bit = 0; bit < bits; ++bit)
            reversed |= (i >> bit & 1U) << (bits - 1 - bit);
        bitReversal_.push_back(reversed);
    }
}

Preprocessor::Features Preprocessor::process(std::span<const float> samples) const
{
    if (samples.size() < minimumSamples)
        throw ASRError(ASRError::Kind::invalidAudioData, "the audio is shorter than two feature frames");
    if (!std::ranges::all_of(samples, [](float sample) { return std::isfinite(sample); }))
        throw ASRError(ASRError::Kind::invalidAudioData, "the audio contains samples that are not finite");
    const std::size_t size = window_.size();
    const std::vector<float> padded = emphasised(samples, size / 2);
    Features features{samples.size() / hopSamples + 1, {}};
    features.values.reserve(features.frames * bands());
    std::vector<double> work(2 * size);
    std::vector<float> power(size / 2 + 1);
    for (std::size_t frame = 0; frame < features.frames; ++frame) {
        powerSpectrum(std::span(padded).subspan(frame * hopSamples, size), work, power);
        for (const Band& band : bands_) {
            double energy = 0;
            for (std::size_t i = 0; i < band.weights.size(); ++i)
                energy += static_cast<double>(band.weights[i]) * static_cast<double>(power[band.firstBin + i]);
            features.values.push_back(std::log(static_cast<float>(energy) + logGuard));
        }
    }
    normalise(features, samples.size() / hopSamples);
    return features;
}

/// Iterative radix-2 FFT, decimation in time, in double precision: the features are differences of logarithms of bands
/// with very little energy, where single precision shows.
void Preprocessor::powerSpectrum(std::span<const float> frame, std::vector<double>& work,
                                 std::vector<float>& power) const
{
    const std::size_t size = window_.size();
    for (std::size_t i = 0; i < size; ++i) {
        work[2 * bitReversal_[i]] = static_cast<double>(frame[i] * window_[i]);
        work[2 * i + 1] = 0;
    }
    for (std::size_t half = 1; half < size; half *= 2) {
        const std::size_t twiddleStep = size / (2 * half);
        for (std::size_t start = 0; start < size; start += 2 * half) {
            for (std::size_t k = 0; k < half; ++k) {
                const double re = twiddles_[2 * k * twiddleStep];
                const double im = twiddles_[2 * k * twiddleStep + 1];
                double* upper = &work[2 * (start + k)];
                double* lower = upper + 2 * half;
                const double productRe = lower[0] * re - lower[1] * im;
                const double productIm = lower[0] * im + lower[1] * re;
                lower[0] = upper[0] - productRe;
                lower[1] = upper[1] - productIm;
                upper[0] += productRe;
                upper[1] += productIm;
            }
        }
    }
    for (std::size_t bin = 0; bin < power.size(); ++bin)
        power[bin] = static_cast<float>(work[2 * bin] * work[2 * bin] + work[2 * bin + 1] * work[2 * bin + 1]);
}

void Preprocessor::normalise(Features& features, std::size_t countedFrames) const
{
    const std::size_t width = bands();
    const auto count = static_cast<double>(countedFrames);
    for (std::size_t band = 0; band < width; ++band) {
        double sum = 0;
        for (std::size_t frame = 0; frame < countedFrames; ++frame)
            sum += static_cast<double>(features.values[frame * width + band]);
        const double mean = sum / count;
        double squares = 0;
        for (std::size_t frame = 0; frame < countedFrames; ++frame) {
            const double difference = static_cast<double>(features.values[frame * width + band]) - mean;
            squares += difference * difference;
        }
        const double deviation = std::sqrt(squares / (count - 1)) + deviationGuard;
        if (!std::isfinite(deviation))
            throw ASRError(ASRError::Kind::invalidAudioData, "the audio is too loud to be processed");
        for (std::size_t frame = 0; frame < features.frames; ++frame) {
            float& value = features.values[frame * width + band];
            value = static_cast<float>((static_cast<double>(value) - mean) / deviation);
        }
    }
}

} // namespace vantro::asr
