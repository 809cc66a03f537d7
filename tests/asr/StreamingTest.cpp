// Recordings that are recognised while they are made.
#include "asr/StreamingAsr.h"
#include "tests/asr/AsrTestSupport.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <fstream>
#include <future>
#include <limits>
#include <random>
#include <sstream>

using namespace vantro::asr;
using namespace vantro::asr::testing;

namespace {

constexpr std::size_t window = 239'360;
constexpr std::size_t stride = 207'360;

std::vector<float> minutes()
{
    std::vector<float> samples;
    for (const char* name : {"long-01.flac", "long-02.flac"}) {
        const std::vector<float> part = recording(name);
        samples.insert(samples.end(), part.begin(), part.end());
    }
    return samples;
}

/// Every figure to the last bit.
std::string described(const ASRResult& result)
{
    std::ostringstream text;
    text << std::hexfloat << result.text << '\n' << result.confidence << '\n';
    for (const TokenTiming& timing : *result.tokenTimings)
        text << timing.tokenId << ' ' << timing.startTime.count() << ' ' << timing.endTime.count() << ' '
             << timing.confidence << '\n';
    return text.str();
}

/// Appends @p samples in pieces of random sizes, with speculation and haste at random moments.
ASRResult streamed(const AsrManager& manager, std::span<const float> samples, std::minstd_rand& random)
{
    const auto stream = manager.stream({});
    std::uniform_int_distribution<std::size_t> largest(1, 3 * window);
    for (std::size_t limit = largest(random); !samples.empty();) {
        const std::size_t size = std::min(std::uniform_int_distribution<std::size_t>(0, limit)(random), samples.size());
        stream->append(samples.first(size));
        samples = samples.subspan(size);
        if (random() % 8 == 0)
            stream->speculate();
        if (random() % 32 == 0)
            stream->hurry();
    }
    return stream->finish({});
}

/// Where this process has mapped a file.
std::span<std::byte> mappingOf(const std::filesystem::path& path)
{
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        std::uintptr_t begin = 0;
        std::uintptr_t end = 0;
        if (line.ends_with(path.string()) && std::sscanf(line.c_str(), "%lx-%lx", &begin, &end) == 2)
            return {reinterpret_cast<std::byte*>(begin), end - begin};
    }
    return {};
}

std::size_t pagesInMemory(std::span<std::byte> mapping)
{
    std::vector<unsigned char> pages(mapping.size() / 4'096 + 1);
    ::mincore(mapping.data(), mapping.size(), pages.data());
    return static_cast<std::size_t>(std::ranges::count_if(pages, [](unsigned char page) { return (page & 1U) != 0; }));
}

} // namespace

class EveryPrecision : public ::testing::TestWithParam<const char*>
{
};

TEST_P(EveryPrecision, AStreamGivesWhatTheWholeRecordingGivesHoweverItsSamplesCome)
{
    AsrManager manager;
    manager.initialize(loadMicro(GetParam()));
    const std::vector<float> speech = minutes();
    std::minstd_rand random(17);
    std::vector<std::size_t> lengths = {
        320, 1'600, window, 240'000, 240'001, window + stride, window + 1, window + stride + 1, speech.size()};
    std::uniform_int_distribution<std::size_t> length(stride, speech.size());
    for (int i = 0; i < 6; ++i)
        lengths.push_back(length(random));
    for (const std::size_t samples : lengths) {
        ASSERT_LE(samples, speech.size());
        const auto part = std::span(speech).last(samples);
        TdtDecoderState state;
        EXPECT_EQ(described(streamed(manager, part, random)), described(manager.transcribe(part, state, {})))
            << samples;
    }
}

INSTANTIATE_TEST_SUITE_P(Streaming, EveryPrecision,
                         ::testing::Values("parakeet-micro-tdt.bin", "parakeet-micro-tdt-f32.bin",
                                           "parakeet-micro-tdt-q8_0.bin"));

TEST(Streaming, WindowsAreRecognisedAndJoinedBeforeTheRecordingEnds)
{
    std::promise<void> joined;
    std::atomic<bool> isJoined = false;
    AsrManager manager({}, [&](const std::string& line) {
        if (line.starts_with("Found exact suffix-prefix overlap") && !isJoined.exchange(true))
            joined.set_value();
    });
    manager.initialize(loadMicro());
    std::atomic<bool> isInBackground = false;
    const auto stream = manager.stream({{}, {}, true, [&] {
                                            isInBackground = true;
                                        }});
    const std::vector<float> speech = minutes();
    stream->append(std::span(speech).first(window + stride));
    EXPECT_EQ(joined.get_future().wait_for(std::chrono::minutes(2)), std::future_status::ready);
    EXPECT_TRUE(isInBackground);
}

TEST(Streaming, WeightsThatTheSystemHasDroppedFromMemoryAreFetchedBeforeTheFirstWindow)
{
    const auto path = std::filesystem::path(::testing::TempDir()) / ("vantro-dropped-" + std::to_string(::getpid()));
    std::filesystem::copy_file(dataFolder() / "parakeet-micro-tdt-q8_0.bin", path);
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    ::fsync(file); // only what the disk has can be dropped
    ::close(file);
    AsrManager manager;
    manager.initialize(AsrModels::load(path, AsrModelVersion::v2, moduleFolders()));
    const std::span<std::byte> mapping = mappingOf(path);
    std::filesystem::remove(path);
    if (mapping.empty())
        GTEST_SKIP() << "this processor uses no weights from the file";
    const std::size_t all = pagesInMemory(mapping);
    ::madvise(mapping.data(), mapping.size(), MADV_RANDOM); // reading a page does not fetch its neighbours
    ::madvise(mapping.data(), mapping.size(), MADV_PAGEOUT);
    if (pagesInMemory(mapping) > all / 2)
        GTEST_SKIP() << "the system keeps the file in memory";
    const auto stream = manager.stream({});
    const auto limit = std::chrono::steady_clock::now() + std::chrono::minutes(2);
    while (pagesInMemory(mapping) < all && std::chrono::steady_clock::now() < limit)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_GE(pagesInMemory(mapping), all);
}

TEST(Streaming, WhatFollowsASpeculationIsRecognisedToo)
{
    AsrManager manager;
    manager.initialize(loadMicro());
    const std::vector<float> sentence = recording("sentence-07.flac");
    const auto stream = manager.stream({});
    stream->append(std::span(sentence).first(sentence.size() / 2));
    stream->speculate();
    const std::string half = stream->finish({}).text;
    EXPECT_FALSE(half.empty());
    stream->append(std::span(sentence).subspan(sentence.size() / 2));
    stream->speculate();
    const std::string whole = stream->finish({}).text;
    EXPECT_EQ(whole, "The invoice is very cheap and the lesson is late.");
    EXPECT_EQ(stream->finish({}).text, whole);
}

TEST(Streaming, ItCanBeGivenUpAtAnyTime)
{
    AsrManager manager;
    manager.initialize(loadMicro());
    const std::vector<float> speech = minutes();
    for (const std::size_t samples : {std::size_t{0}, window, 3 * stride}) {
        for (const bool isLive : {true, false}) {
            const auto stream = manager.stream({{}, {}, isLive, {}});
            stream->append(std::span(speech).first(samples));
            stream->speculate();
        }
    }
    std::stop_source stop;
    const auto stream = manager.stream({});
    stream->append(speech);
    const auto cancel = [&](float) {
        stop.request_stop();
    };
    EXPECT_EQ(errorOf([&] { stream->finish({cancel, stop.get_token()}); }), ASRError::Kind::processingFailed);
}

TEST(Streaming, AComputationStopsBetweenTwoOperationsOfItsGraph)
{
    loadProcessorModule(moduleFolders());
    struct Observation
    {
        std::stop_source stop;
        bool hasGoneOn = false;
    } seen;
    Graph graph(8);
    const auto stopHere = [](ggml_tensor*, const ggml_tensor*, int, int, void* data) {
        static_cast<Observation*>(data)->stop.request_stop();
    };
    const auto goOn = [](ggml_tensor*, const ggml_tensor*, int, int, void* data) {
        static_cast<Observation*>(data)->hasGoneOn = true;
    };
    ggml_tensor* first = ggml_map_custom1(graph.context(), graph.input(1), stopHere, 1, &seen);
    graph.output(ggml_map_custom1(graph.context(), first, goOn, 1, &seen));
    GraphRunner runner(1);
    runner.allocate(graph);
    EXPECT_EQ(errorOf([&] { runner.compute(graph.get(), seen.stop.get_token()); }), ASRError::Kind::processingFailed);
    EXPECT_FALSE(seen.hasGoneOn);
    runner.compute(graph.get(), {});
    EXPECT_TRUE(seen.hasGoneOn);
}

TEST(Streaming, WhatIsNoAudioIsRefusedAtTheEnd)
{
    AsrManager manager;
    EXPECT_EQ(errorOf([&] { static_cast<void>(manager.stream({})); }), ASRError::Kind::notInitialized);
    manager.initialize(loadMicro());
    std::vector<float> samples(2 * window, 0.01F);
    samples[5'000] = std::numeric_limits<float>::quiet_NaN();
    for (const std::size_t count : {std::size_t{0}, std::size_t{319}, samples.size()}) {
        const auto stream = manager.stream({});
        stream->append(std::span(samples).first(count));
        EXPECT_EQ(errorOf([&] { stream->finish({}); }), ASRError::Kind::invalidAudioData) << count;
    }
}
