// Mixes a recording with noise that goes on after it, and writes it whole and as a dictation recognises it:
//   vantro_bench_pauses RECORDING NOISE DBFS SECONDS WHOLE.flac RECOGNISED.flac
// Prints whether its end is a pause in which recognition begins before the stop (1 or 0).

#include "vantro/app/RecognitionAhead.h"
#include "vantro/audio/PauseDetector.h"
#include "vantro/sound/AudioFile.h"

#include <QFile>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <numbers>
#include <random>
#include <span>
#include <string_view>
#include <vector>

namespace {

constexpr double rate = 16'000;
constexpr std::array notesHz = {220.0, 277.2, 329.6, 440.0};
constexpr double notesPerSecond = 4;
constexpr double humHz = 100;

double wave(double hertz, std::size_t index)
{
    return std::sin(2 * std::numbers::pi * hertz * static_cast<double>(index) / rate);
}

/// room: white noise. fan: low noise and the hum of its motor. music: a chord whose notes come one after the other.
std::vector<double> noise(std::string_view kind, std::size_t count)
{
    std::mt19937 random(count);
    std::normal_distribution<double> normal;
    std::vector<double> values(count);
    double low = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (kind == "music") {
            const auto begun = static_cast<std::size_t>(static_cast<double>(i) * notesPerSecond / rate);
            for (const double hertz : std::span(notesHz).first(begun % notesHz.size() + 1))
                values[i] += wave(hertz, i);
            continue;
        }
        low = 0.97 * low + normal(random);
        values[i] = kind == "fan" ? low + 2 * wave(humHz, i) : normal(random);
    }
    return values;
}

void add(std::vector<float>& samples, const std::vector<double>& noise, double dbfs)
{
    double power = 0;
    for (const double value : noise)
        power += value * value;
    const double gain = std::pow(10, dbfs / 20) / std::sqrt(power / static_cast<double>(noise.size()));
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] += static_cast<float>(gain * noise[i]);
}

void write(const char* path, std::span<const float> samples)
{
    QFile file(QFile::decodeName(path));
    const QByteArray bytes = vantro::flacOf(samples);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw vantro::AudioFileError(file.errorString());
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc != 7)
        return EXIT_FAILURE;
    auto samples = vantro::AudioFile::read(QFile::decodeName(argv[1])).samples;
    samples.resize(samples.size() + static_cast<std::size_t>(std::atof(argv[4]) * rate));
    add(samples, noise(argv[2], samples.size()), std::atof(argv[3]));

    vantro::PauseDetector pauses;
    pauses.hear(samples);
    write(argv[5], samples);
    write(argv[6], std::span(samples).first(pauses.usefulCount()));
    std::printf("%d\n", pauses.speechCount() > 0 && pauses.pauseCount() >= vantro::RecognitionAhead::pauseCount);
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return EXIT_FAILURE;
}
