// The recogniser from samples to text with a small real model, held against an independent implementation's results.
#include "asr/testing/ModelWriter.h"
#include "tests/asr/AsrTestSupport.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <limits>
#include <thread>

using namespace vantro::asr;
using namespace vantro::asr::testing;

namespace {

constexpr std::size_t samplesPerSecond = 16'000;
constexpr std::size_t windowSamples = ChunkProcessor::maximumWindowSamples;

struct Recogniser
{
    explicit Recogniser(std::shared_ptr<const AsrModels> models, LogSink log = {}) : manager({}, std::move(log))
    {
        manager.initialize(std::move(models));
    }
    std::string text(const std::vector<float>& samples, const AsrManager::Options& options = {})
    {
        return transcribe(manager, samples, options).text;
    }

    AsrManager manager;
};

EncoderFrames encode(const AsrModels& models, const Preprocessor::Features& features, GraphRunner& runner)
{
    Encoding encoding(models.encoder, features, runner, {});
    while (!encoding.isDone())
        encoding.computeLayer({});
    return encoding.frames();
}

} // namespace

class EveryVariant : public ::testing::TestWithParam<std::tuple<const char*, kernels::Level>>
{
};

std::vector<kernels::Level> supportedLevels()
{
    std::vector<kernels::Level> result;
    std::ranges::copy_if(kernels::levels, std::back_inserter(result), kernels::isSupported);
    return result;
}

TEST_P(EveryVariant, WritesTheReferenceTextOfEveryRecordingWithEveryInstructionSet)
{
    const auto& [variant, cap] = GetParam();
    Recogniser recogniser(loadMicro(variant, AsrModelVersion::v2, cap));
    for (const Expectation& expected : expectations())
        EXPECT_EQ(recogniser.text(recording(expected.file)), expected.text) << expected.file;
}

INSTANTIATE_TEST_SUITE_P(Recognising, EveryVariant,
                         ::testing::Combine(::testing::Values("parakeet-micro-tdt.bin", "parakeet-micro-tdt-f32.bin",
                                                              "parakeet-micro-tdt-q8_0.bin"),
                                            ::testing::ValuesIn(supportedLevels())));

class EveryQuantisation : public ::testing::TestWithParam<ggml_type>
{
};

/// Coarser weights hear some words differently: most recordings give the reference text all the same.
TEST_P(EveryQuantisation, WritesTheReferenceTextOfMostRecordings)
{
    const auto path = std::filesystem::path(::testing::TempDir()) /
                      ("vantro-quantised-" + std::to_string(::getpid()) + "-" + ggml_type_name(GetParam()));
    writeRequantised(path, dataFolder() / "parakeet-micro-tdt-f32.bin", GetParam());
    Recogniser recogniser(AsrModels::load(path, AsrModelVersion::v2, moduleFolders()));
    std::filesystem::remove(path);
    std::size_t equal = 0;
    std::size_t count = 0;
    for (const Expectation& expected : expectations()) {
        const std::string text = recogniser.text(recording(expected.file));
        equal += text == expected.text ? 1 : 0;
        ++count;
        EXPECT_EQ(text.empty(), expected.text.empty()) << expected.file;
    }
    std::printf("%s: %zu of %zu\n", ggml_type_name(GetParam()), equal, count);
    EXPECT_GT(equal, count * 2 / 3);
}

INSTANTIATE_TEST_SUITE_P(Recognising, EveryQuantisation,
                         ::testing::Values(GGML_TYPE_Q8_0, GGML_TYPE_Q5_0, GGML_TYPE_Q5_1, GGML_TYPE_Q4_0,
                                           GGML_TYPE_Q4_1, GGML_TYPE_BF16),
                         [](const auto& info) { return std::string(ggml_type_name(info.param)); });

TEST(Recognising, FindsTheReferenceTokensAtTheirFramesWithTheirDurations)
{
    const auto models = loadMicro("parakeet-micro-tdt-f32.bin");
    TdtConfig config;
    config.blankId = models->configuration.blankId;
    TdtDecoderV3 decoder(*models, config, nullptr);
    GraphRunner runner(2);
    for (const Expectation& expected : expectations()) {
        const std::vector<float> samples = recording(expected.file);
        if (samples.size() > windowSamples)
            continue;
        const auto encoded = encode(*models, models->preprocessor.process(samples), runner);
        const auto frames = project(models->joint.frameProjection(), encoded, runner, {});
        TdtDecoderState state;
        std::vector<Expectation::Token> found;
        for (const DecodedToken& token :
             decoder.decode({frames, 0, static_cast<std::int32_t>(frames.frames), 0}, state, {}))
            found.push_back({token.id, token.frame, token.duration});
        EXPECT_EQ(found, expected.tokens) << expected.file;
    }
}

TEST(Recognising, ComputesTheReferenceFeaturesAndEncoderOutput)
{
    const auto models = loadMicro("parakeet-micro-tdt-f32.bin");
    GraphRunner runner(2);
    for (const char* name : {"sentence-01", "silence"}) {
        const auto features = models->preprocessor.process(recording(std::string(name) + ".flac"));
        EXPECT_LT(largestDifference(features.values, reference(std::string(name) + ".mel.f32")), 2e-4F) << name;
        const auto frames = encode(*models, features, runner);
        EXPECT_LT(largestDifference(frames.values, reference(std::string(name) + ".enc.f32")), 1e-3F) << name;
    }
}

TEST(Recognising, TellsWhenEachTokenWasSaidAndHowSureItIs)
{
    Recogniser recogniser(loadMicro());
    const std::vector<float> samples = recording("sentence-03.flac");
    const ASRResult result = transcribe(recogniser.manager, samples);
    ASSERT_TRUE(result.tokenTimings && !result.tokenTimings->empty());
    Seconds previous{};
    for (const TokenTiming& timing : *result.tokenTimings) {
        EXPECT_LE(previous, timing.startTime);
        EXPECT_LT(timing.startTime, timing.endTime);
        EXPECT_LE(timing.endTime, result.duration);
        EXPECT_GT(timing.confidence, 0);
        EXPECT_LE(timing.confidence, 1);
        previous = timing.startTime;
    }
    // The same words later in the recording: every time moves with them.
    std::vector<float> later(2 * samplesPerSecond, 0.0F);
    later.insert(later.end(), samples.begin(), samples.end());
    const ASRResult shifted = transcribe(recogniser.manager, later);
    const double moved = (shifted.tokenTimings->back().endTime - result.tokenTimings->back().endTime).count();
    EXPECT_NEAR(moved, 2, 0.25);
}

TEST(Recognising, RefusesWhatIsNoAudioAndGoesOnWorking)
{
    AsrManager manager;
    EXPECT_EQ(errorOf([&] { transcribe(manager, recording("sentence-01.flac")); }), ASRError::Kind::notInitialized);
    manager.initialize(loadMicro());
    std::vector<float> withNan = recording("sentence-01.flac");
    withNan[1'000] = std::numeric_limits<float>::quiet_NaN();
    std::vector<float> infinite(windowSamples * 2, 0.01F);
    infinite.back() = std::numeric_limits<float>::infinity();
    for (const std::vector<float>& samples : {std::vector<float>{}, std::vector<float>{0.5F}, std::vector<float>(319),
                                              withNan, infinite, std::vector<float>(16'000, 1e30F)})
        EXPECT_EQ(errorOf([&] { transcribe(manager, samples); }), ASRError::Kind::invalidAudioData) << samples.size();
    EXPECT_EQ(transcribe(manager, recording("sentence-01.flac")).text, "Can you show me the plan?");
    EXPECT_EQ(transcribe(manager, std::vector<float>(320)).text, "");
}

TEST(Recognising, StopsInTheMiddleAndIsReadyForTheNextRecording)
{
    Recogniser recogniser(loadMicro());
    std::stop_source stop;
    AsrManager::Options options;
    options.stop = stop.get_token();
    options.onProgress = [&](float) {
        stop.request_stop();
    };
    const std::vector<float> minutes(windowSamples * 20, 0.01F);
    EXPECT_EQ(errorOf([&] { recogniser.text(minutes, options); }), ASRError::Kind::processingFailed);
    EXPECT_EQ(recogniser.text(recording("sentence-02.flac")), "Good morning, Peter.");
}

TEST(Recognising, OneModelServesSeveralManagersAtOnce)
{
    const auto models = loadMicro();
    const std::vector<float> samples = recording("sentence-07.flac");
    std::vector<std::string> texts(3);
    {
        std::vector<std::jthread> threads;
        for (std::string& text : texts)
            threads.emplace_back([&] { text = Recogniser(models).text(samples); });
    }
    for (const std::string& text : texts)
        EXPECT_EQ(text, "The invoice is very cheap and the lesson is late.");
}

TEST(Recognising, ALanguageHintLeavesOutOtherScriptsWithVersionThreeOnly)
{
    std::string logged;
    const auto log = [&](const std::string& line) {
        logged += line + "\n";
    };
    AsrManager::Options options;
    options.language = languageFromCode("ru");
    Recogniser multilingual(loadMicro("parakeet-micro-tdt.bin", AsrModelVersion::v3), log);
    const std::string cyrillic = multilingual.text(recording("sentence-01.flac"), options);
    EXPECT_TRUE(std::ranges::none_of(cyrillic, [](char c) { return std::isalpha(static_cast<unsigned char>(c)); }))
        << cyrillic;
    options.language = languageFromCode("de");
    EXPECT_EQ(multilingual.text(recording("sentence-01.flac"), options), "Can you show me the plan?");
    EXPECT_EQ(logged.find("Ignoring"), std::string::npos);

    options.language = languageFromCode("ru");
    Recogniser english(loadMicro(), log);
    EXPECT_EQ(english.text(recording("sentence-01.flac"), options), "Can you show me the plan?");
    EXPECT_NE(
        logged.find("Ignoring `language` hint: script filtering requires the v3 joint decoder; loaded model is v2"),
        std::string::npos);

    const std::vector<std::string> vocabulary = {"\u2581Haus", "\u2581дом", "\u2581σπίτι", "\u2581é", "7", "."};
    const TokenFilter latin(vocabulary, Script::latin);
    const TokenFilter cyrillicOnly(vocabulary, scriptOf(Language::ukrainian));
    const auto allowed = [&](const TokenFilter& filter) {
        std::string result;
        for (std::size_t i = 0; i <= vocabulary.size(); ++i) // the last one is the blank
            result += filter.allows(i) ? '1' : '0';
        return result;
    };
    EXPECT_EQ(allowed(latin), "1001111");
    EXPECT_EQ(allowed(cyrillicOnly), "0100111");
    EXPECT_FALSE(languageFromCode("ja"));
}
