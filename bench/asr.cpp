// Runs the Parakeet recogniser on one recording: asr MODEL RECORDING [RUNS]
// Prints the text, the recognition time of each run, and the process's peak memory.
#include "asr/ASRError.h"
#include "asr/AsrManager.h"
#include "platform/ThisProcess.h"
#include "vantro/sound/AudioFile.h"

#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>

namespace {

using namespace vantro::asr;

double secondsSince(std::chrono::steady_clock::time_point begun)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
}

void run(const char* modelFile, const char* recording, int runs)
{
    const auto audio = vantro::AudioFile::read(QString::fromLocal8Bit(recording));
    const std::filesystem::path modules[] = {vantro::process::programFile().parent_path()};
    auto begun = std::chrono::steady_clock::now();
    AsrManager manager;
    manager.initialize(AsrModels::load(modelFile, AsrModelVersion::v3, modules));
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
    if (argc < 3) {
        std::fprintf(stderr, "usage: asr MODEL RECORDING [RUNS]\n");
        return 2;
    }
    try {
        run(argv[1], argv[2], argc > 3 ? std::atoi(argv[3]) : 1);
    } catch (const ASRError& error) {
        std::fprintf(stderr, "%s %s\n", error.what(), error.detail().c_str());
        return 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
