// What a recogniser does that runs out of memory.
#include "asr/CtcKeywordSpotter.h"
#include "tests/asr/AsrTestSupport.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <utility>

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

/// Uses up the heap except for one block of @p left bytes, as long as the object lives.
class FullHeap
{
public:
    explicit FullHeap(std::size_t left) : spare_(std::malloc(left)), scarcity_(0)
    {
        for (std::size_t size = mebibyte; size >= sizeof(Block); size /= 2) {
            while (void* block = std::malloc(size))
                blocks_ = new (block) Block{blocks_};
        }
        std::free(spare_);
    }
    ~FullHeap()
    {
        while (blocks_ != nullptr)
            std::free(std::exchange(blocks_, blocks_->next));
    }
    FullHeap(const FullHeap&) = delete;
    FullHeap& operator=(const FullHeap&) = delete;

private:
    struct Block
    {
        Block* next;
    };

    void* spare_;
    Scarcity scarcity_;
    Block* blocks_ = nullptr;
};

/// Loads both kinds of model and listens, with hardly any memory at all; ends the process with 0 when every failure was
/// an exception and everything works afterwards.
[[noreturn]] void workOnAFullHeap()
{
    const auto load = [] {
        return std::make_shared<CtcKeywordSpotter>(
            CtcModel::load(dataFolder() / "parakeet-micro-ctc.gguf", moduleFolders()));
    };
    const std::vector<float> sentence = recording("sentence-02.flac");
    const auto listen = [&](const std::shared_ptr<CtcKeywordSpotter>& spotter) {
        WindowPool pool(spotter->model->network(), {1, false, {}, {}});
        CtcSpotting spotting(spotter, pool);
        spotting.append(sentence);
        pool.hurry();
        return spotting.finish({}).frames;
    };
    const auto spotter = load();
    const std::size_t frames = listen(spotter);
    const std::array<std::function<void()>, 3> works{[&] { load(); }, [&] { listen(spotter); },
                                                     [] {
                                                         loadMicro();
                                                     }};
    int failures = 0;
    for (std::size_t left = 64; left <= 4 * mebibyte; left += std::max<std::size_t>(64, left / 16)) {
        for (const std::function<void()>& work : works) {
            std::fprintf(stderr, "%zu bytes left\n", left);
            const FullHeap heap(left);
            try {
                failures += errorOf(work) ? 1 : 0;
            } catch (const std::bad_alloc&) {
                ++failures; // what was missing was the memory for the message
            }
        }
    }
    std::exit(failures > 0 && listen(load()) == frames ? 0 : 1);
}

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

TEST_F(ScarceMemoryDeathTest, AFullHeapEndsTheWorkAndNotTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    loadProcessorModule(moduleFolders());
    EXPECT_EXIT(workOnAFullHeap(), ::testing::ExitedWithCode(0), "");
}

TEST_F(ScarceMemoryDeathTest, ATranscriptionThatLacksMemoryFailsAndTheNextOneWorks)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    loadProcessorModule(moduleFolders());
    EXPECT_EXIT(transcribeInScarcity(), ::testing::ExitedWithCode(0), "");
}
