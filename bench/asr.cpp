// Runs the Parakeet recogniser on one recording: asr [--avx2] MODEL RECORDING [RUNS]
// Prints the text, the recognition time of each run, and the process's peak memory. --avx2 leaves instruction sets
// beyond AVX2 unused, except in ggml's module.
#include "asr/ASRError.h"
#include "asr/AsrManager.h"
#include "platform/ThisProcess.h"
#include "vantro/sound/AudioFile.h"

#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>

namespace {

using namespace vantro::asr;

double secondsSince(std::chrono::steady_clock::time_point begun)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
}

void run(const char* modelFile, const char* recording, int runs, kernels::Level cap)
{
    const auto audio = vantro::AudioFile::read(QString::fromLocal8Bit(recording));
    const std::filesystem::path modules[] = {vantro::process::programFile().parent_path()};
    auto begun = std::chrono::steady_clock::now();
    AsrManager manager;
    manager.initialize(AsrModels::load(modelFile, AsrModelVersion::v3, modules, cap));
    std::printf("load %.3f s\n", secondsSince(begun));
    for (int i = 0; i < runs; ++i) {
        TdtDecoderState state;
        const ASRResult result = manager.transcribe(audio.samples, state, {});
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
    const bool isCapped = argc > 1 && std::string_view(argv[1]) == "--avx2";
    const std::span arguments(argv + (isCapped ? 2 : 1), argv + argc);
    if (arguments.size() < 2) {
        std::fprintf(stderr, "usage: asr [--avx2] MODEL RECORDING [RUNS]\n");
        return 2;
    }
    try {
        run(arguments[0], arguments[1], arguments.size() > 2 ? std::atoi(arguments[2]) : 1,
            isCapped ? kernels::Level::avx2 : kernels::highestLevel);
    } catch (const ASRError& error) {
        std::fprintf(stderr, "%s %s\n", error.what(), error.detail().c_str());
        return 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
