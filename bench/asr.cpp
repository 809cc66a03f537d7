// Runs the Parakeet recogniser on one recording: asr [--avx2] MODEL RECORDING [RUNS]
// Prints the text, the recognition time of each run, and the process's peak memory. --avx2 leaves instruction sets
// beyond AVX2 unused, except in ggml's module.
#include "asr/ASRError.h"
#include "asr/AsrManager.h"
#include "platform/ThisProcess.h"
#include "vantro/sound/AudioFile.h"

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>
#include <thread>

namespace {

using namespace vantro::asr;

double secondsSince(std::chrono::steady_clock::time_point begun)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
}

struct Options
{
    kernels::Level cap = kernels::highestLevel;
    bool isLive = false;
    int runs = 1;
};

/// The whole process's, in seconds.
double processorTime()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

ASRResult recogniseLive(const AsrManager& manager, std::span<const float> samples)
{
    constexpr std::size_t piece = 1'600;
    const auto stream = manager.stream({});
    auto due = std::chrono::steady_clock::now();
    while (!samples.empty()) {
        const std::size_t size = std::min(piece, samples.size());
        std::this_thread::sleep_until(due += std::chrono::microseconds(size * 1'000'000 / 16'000));
        stream->append(samples.first(size));
        samples = samples.subspan(size);
    }
    const double before = processorTime();
    const ASRResult result = stream->finish({});
    std::printf("processor time after the end %.3f s\n", processorTime() - before);
    return result;
}

void run(const char* modelFile, const char* recording, const Options& options)
{
    const auto audio = vantro::AudioFile::read(QString::fromLocal8Bit(recording));
    const std::filesystem::path modules[] = {vantro::process::programFile().parent_path()};
    auto begun = std::chrono::steady_clock::now();
    AsrManager manager;
    manager.initialize(AsrModels::load(modelFile, AsrModelVersion::v3, modules, options.cap));
    std::printf("load %.3f s\n", secondsSince(begun));
    for (int i = 0; i < options.runs; ++i) {
        TdtDecoderState state;
        const ASRResult result =
            options.isLive ? recogniseLive(manager, audio.samples) : manager.transcribe(audio.samples, state, {});
        if (i == 0)
            std::printf("%s\n", result.text.c_str());
        std::printf("transcribe %.1f s of audio in %.3f s, %zu tokens\n", result.duration.count(),
                    result.processingTime.count(), result.tokenTimings->size());
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("peak memory %.1f MiB\n", static_cast<double>(usage.ru_maxrss) / 1024);
}

} // namespace

int main(int argc, char** argv)
{
    std::span arguments(argv + 1, argv + argc);
    Options options;
    for (; !arguments.empty() && std::string_view(arguments[0]).starts_with("--"); arguments = arguments.subspan(1)) {
        if (std::string_view(arguments[0]) == "--avx2")
            options.cap = kernels::Level::avx2;
        else if (std::string_view(arguments[0]) == "--live")
            options.isLive = true;
    }
    if (arguments.size() < 2) {
        std::fprintf(stderr, "usage: asr [--avx2] [--live] MODEL RECORDING [RUNS]\n");
        return 2;
    }
    if (arguments.size() > 2)
        options.runs = std::atoi(arguments[2]);
    try {
        run(arguments[0], arguments[1], options);
    } catch (const ASRError& error) {
        std::fprintf(stderr, "%s %s\n", error.what(), error.detail().c_str());
        return 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
