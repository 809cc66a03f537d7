// What a recogniser does that runs out of memory.
#include "tests/asr/AsrTestSupport.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

using namespace vantro::asr;
using namespace vantro::asr::testing;

namespace {

constexpr std::size_t mebibyte = 1024 * 1024;

std::size_t addressSpaceInUse()
{
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages * 4096;
}

/// Lets the process have only @p more than it has, as long as the object lives.
class Scarcity
{
public:
    explicit Scarcity(std::size_t more)
    {
        getrlimit(RLIMIT_AS, &former_);
        const rlimit limit{addressSpaceInUse() + more, former_.rlim_max};
        setrlimit(RLIMIT_AS, &limit);
    }
    ~Scarcity() { setrlimit(RLIMIT_AS, &former_); }
    Scarcity(const Scarcity&) = delete;
    Scarcity& operator=(const Scarcity&) = delete;

private:
    rlimit former_{};
};

/// Loads with less and less memory; ends the process with 0 when every failure was an ASRError and the next attempt
/// with enough memory succeeds.
[[noreturn]] void loadInScarcity()
{
    int failures = 0;
    for (const std::size_t more : {mebibyte / 4, mebibyte, 2 * mebibyte, 4 * mebibyte}) {
        const auto kind = [&] {
            const Scarcity scarcity(more);
            return errorOf([] { loadMicro("parakeet-micro-tdt-f32.bin"); });
        }();
        failures += kind == ASRError::Kind::modelLoadFailed ? 1 : 0;
        if (kind && kind != ASRError::Kind::modelLoadFailed)
            std::exit(2);
    }
    AsrManager manager;
    manager.initialize(loadMicro());
    const bool works = transcribe(manager, recording("sentence-02.flac")).text == "Good morning, Peter.";
    std::exit(works && failures > 0 ? 0 : 1);
}

/// Transcribes with less and less memory, with one window and with several; ends the process with 0 when every failure
/// was an ASRError and the same recogniser works again afterwards.
[[noreturn]] void transcribeInScarcity()
{
    AsrManager manager;
    manager.initialize(loadMicro("parakeet-micro-tdt-f32.bin"));
    std::vector<float> sentence = recording("sentence-02.flac");
    std::vector<float> minute;
    while (minute.size() < 60 * std::size_t{16'000})
        minute.insert(minute.end(), sentence.begin(), sentence.end());
    int failures = 0;
    for (const std::size_t more : {std::size_t{0}, mebibyte / 4, mebibyte, 4 * mebibyte, 16 * mebibyte, 32 * mebibyte,
                                   64 * mebibyte, 128 * mebibyte}) {
        for (std::vector<float>* samples : {&sentence, &minute}) {
            const auto kind = [&] {
                const Scarcity scarcity(more);
                return errorOf([&] { transcribe(manager, *samples); });
            }();
            std::fprintf(stderr, "%zu KiB more: %s\n", more / 1024, kind ? "refused" : "done");
            failures += kind == ASRError::Kind::processingFailed ? 1 : 0;
            if (kind && kind != ASRError::Kind::processingFailed)
                std::exit(2);
        }
    }
    const bool works = transcribe(manager, sentence).text == "Good morning, Peter.";
    std::exit(works && failures > 0 ? 0 : 1);
}

class ScarceMemoryDeathTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        GTEST_SKIP() << "the sanitizers reserve more memory than there may be";
#endif
    }
};

} // namespace

TEST_F(ScarceMemoryDeathTest, ALoadThatLacksMemoryFailsAndTheNextOneWorks)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    loadProcessorModule(moduleFolders());
    EXPECT_EXIT(loadInScarcity(), ::testing::ExitedWithCode(0), "");
}

TEST_F(ScarceMemoryDeathTest, ATranscriptionThatLacksMemoryFailsAndTheNextOneWorks)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    loadProcessorModule(moduleFolders());
    EXPECT_EXIT(transcribeInScarcity(), ::testing::ExitedWithCode(0), "");
}
