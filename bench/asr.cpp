// Runs the Parakeet recogniser on one recording: asr [--avx2] [--live] [--ctc FILE] MODEL RECORDING [RUNS]
// Prints the text, the recognition time of each run, and the process's peak memory. --avx2 leaves instruction sets
// beyond AVX2 unused, except in ggml's module. --live gives the samples as fast as they are spoken. --ctc has the
// model FILE look for a thousand random names beside it.
#include "asr/ASRError.h"
#include "asr/AsrManager.h"
#include "asr/CtcKeywordSpotter.h"
#include "asr/VocabularyRescorer.h"
#include "platform/ThisProcess.h"
#include "vantro/sound/AudioFile.h"

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>
#include <span>
#include <string_view>
#include <thread>
#include <vector>

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
    std::filesystem::path ctcFile; ///< may be empty
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

struct Boosting
{
    std::shared_ptr<const CtcKeywordSpotter> spotter; ///< null without a CTC model
    std::shared_ptr<const VocabularyRescorer> rescorer;
};

/// Names of 4 to 12 letters.
std::vector<CustomVocabularyTerm> randomNames()
{
    std::mt19937 random(1);
    std::vector<CustomVocabularyTerm> terms(1'000);
    for (CustomVocabularyTerm& term : terms) {
        const std::size_t length = 4 + random() % 9;
        for (std::size_t i = 0; i < length; ++i)
            term.text += "aeioubcdfghjklmnprstvwz"[i % 2 == 0 ? 5 + random() % 18 : random() % 5];
    }
    return terms;
}

Boosting loadBoosting(const Options& options, std::span<const std::filesystem::path> modules)
{
    if (options.ctcFile.empty())
        return {};
    const auto model = CtcModel::load(options.ctcFile, modules, options.cap);
    return {std::make_shared<CtcKeywordSpotter>(model),
            std::make_shared<VocabularyRescorer>(model, tokenised(randomNames(), model->tokenizer()))};
}

void give(StreamingAsr& stream, CtcSpotting* spotting, std::span<const float> samples)
{
    stream.append(samples);
    if (spotting != nullptr)
        spotting->append(samples);
}

/// @p isLive: as fast as it is spoken.
ASRResult recognise(const AsrManager& manager, const Boosting& boosting, std::span<const float> samples, bool isLive)
{
    constexpr std::size_t piece = 1'600;
    StreamingAsr::Options options;
    options.isLive = isLive;
    const auto stream = manager.stream(options);
    std::unique_ptr<CtcSpotting> spotting;
    if (boosting.spotter != nullptr)
        spotting = std::make_unique<CtcSpotting>(boosting.spotter, stream->pool());
    auto due = std::chrono::steady_clock::now();
    for (; isLive && !samples.empty(); samples = samples.subspan(std::min(piece, samples.size()))) {
        const std::size_t size = std::min(piece, samples.size());
        std::this_thread::sleep_until(due += std::chrono::microseconds(size * 1'000'000 / 16'000));
        give(*stream, spotting.get(), samples.first(size));
    }
    const double before = processorTime();
    const auto begun = std::chrono::steady_clock::now();
    give(*stream, spotting.get(), samples);
    stream->speculate();
    if (spotting != nullptr)
        spotting->speculate();
    const ASRResult result = stream->finish({});
    const double recognised = secondsSince(begun);
    if (spotting != nullptr) {
        const CtcLogProbabilities logProbs = spotting->finish({});
        const double spotted = secondsSince(begun);
        const auto output = boosting.rescorer->rescore(result.text, *result.tokenTimings, logProbs, {});
        std::printf("spotted %.3f s later, 1000 terms rescored in %.1f ms, %zu replaced\n", spotted - recognised,
                    1'000 * (secondsSince(begun) - spotted), output.replacements.size());
    }
    std::printf("end to text %.3f s, processor time after the end %.3f s\n", secondsSince(begun),
                processorTime() - before);
    return result;
}

void run(const char* modelFile, const char* recording, const Options& options)
{
    const auto audio = vantro::AudioFile::read(QString::fromLocal8Bit(recording));
    const std::filesystem::path modules[] = {vantro::process::programFile().parent_path()};
    auto begun = std::chrono::steady_clock::now();
    AsrManager manager;
    manager.initialize(AsrModels::load(modelFile, AsrModelVersion::v3, modules, options.cap));
    const Boosting boosting = loadBoosting(options, modules);
    std::printf("load %.3f s\n", secondsSince(begun));
    for (int i = 0; i < options.runs; ++i) {
        const ASRResult result = recognise(manager, boosting, audio.samples, options.isLive);
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
        else if (std::string_view(arguments[0]) == "--ctc" && arguments.size() > 1) {
            arguments = arguments.subspan(1);
            options.ctcFile = arguments[0];
        }
    }
    if (arguments.size() < 2) {
        std::fprintf(stderr, "usage: asr [--avx2] [--live] [--ctc FILE] MODEL RECORDING [RUNS]\n");
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
