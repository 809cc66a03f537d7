// The CTC model from samples to probabilities, held against an independent implementation's results.
#include "asr/CtcKeywordSpotter.h"
#include "asr/testing/GgufWriter.h"
#include "tests/asr/AsrTestSupport.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>

using namespace vantro::asr;
using namespace vantro::asr::testing;

namespace {

std::filesystem::path microFile()
{
    return dataFolder() / "parakeet-micro-ctc.gguf";
}

CtcLogProbabilities listen(const std::shared_ptr<const CtcKeywordSpotter>& spotter, const std::vector<float>& samples,
                           std::size_t pieceSize = 1'000'000)
{
    WindowPool pool(spotter->model->network(), {2, false, {}, {}});
    CtcSpotting spotting(spotter, pool);
    for (std::size_t i = 0; i < samples.size(); i += pieceSize) {
        spotting.append(std::span(samples).subspan(i, std::min(pieceSize, samples.size() - i)));
        if (pieceSize < samples.size())
            spotting.speculate();
    }
    pool.hurry();
    return spotting.finish({});
}

std::shared_ptr<const CtcKeywordSpotter> spotterOf(const std::filesystem::path& file,
                                                   kernels::Level cap = kernels::highestLevel)
{
    return std::make_shared<CtcKeywordSpotter>(CtcModel::load(file, moduleFolders(), cap));
}

/// The best class of each frame, without repeats and blanks.
std::string greedyText(const CtcLogProbabilities& logProbs, const CtcModel& model)
{
    std::vector<std::int32_t> ids;
    std::int32_t previous = model.blankId();
    for (std::size_t frame = 0; frame < logProbs.frames; ++frame) {
        const auto values = logProbs.frame(frame);
        const auto best = static_cast<std::int32_t>(std::ranges::max_element(values) - values.begin());
        if (best != previous && best != model.blankId())
            ids.push_back(best);
        previous = best;
    }
    return model.tokenizer().decode(ids);
}

} // namespace

/// The reference was computed from the same float16 weights in single precision; only ggml's float32 products keep
/// that.
TEST(CtcModels, ComputeTheReferenceProbabilities)
{
    const auto widened = std::filesystem::path(::testing::TempDir()) / ("vantro-ctc-" + std::to_string(::getpid()));
    writeRequantisedCtc(widened, microFile(), GGML_TYPE_F32);
    const auto exact = spotterOf(widened);
    std::filesystem::remove(widened);
    const auto stored = spotterOf(microFile());
    for (const std::string name : {"sentence-01", "silence"}) {
        const std::vector<float> expected = reference(name + ".ctc.f32");
        const std::vector<float> samples = recording(name + ".flac");
        const float difference = largestDifference(listen(exact, samples).values, expected);
        EXPECT_LT(difference, 1e-3F) << name;
        const float fast = largestDifference(listen(stored, samples).values, expected);
        std::printf("%s: %.2g with float32 products, %.2g as dictations are computed\n", name.c_str(),
                    static_cast<double>(difference), static_cast<double>(fast));
    }
}

TEST(CtcModels, WriteTheReferenceTextOfEveryRecordingWithEveryInstructionSet)
{
    for (const kernels::Level level : kernels::levels) {
        if (!kernels::isSupported(level))
            continue;
        const auto spotter = spotterOf(microFile(), level);
        for (const Expectation& expected : expectations()) {
            if (recording(expected.file).size() > 128'000)
                continue; // the reference is that of one window
            EXPECT_EQ(greedyText(listen(spotter, recording(expected.file)), *spotter->model), expected.ctcText)
                << expected.file;
        }
    }
}
