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

} // namespace

TEST(ScarceMemoryDeathTest, ALoadThatLacksMemoryFailsAndTheNextOneWorks)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    loadProcessorModule(moduleFolders());
    EXPECT_EXIT(loadInScarcity(), ::testing::ExitedWithCode(0), "");
}
