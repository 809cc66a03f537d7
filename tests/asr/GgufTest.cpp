// GGUF files that are damaged, foreign or made to do harm; and the shapes of the hybrid model.
#include "asr/CtcKeywordSpotter.h"
#include "asr/GgufFile.h"
#include "asr/testing/GgufWriter.h"
#include "tests/asr/AsrTestSupport.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <random>

using namespace vantro::asr;
using namespace vantro::asr::testing;

namespace {

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class GgufFiles : public ::testing::Test
{
protected:
    ~GgufFiles() override { std::filesystem::remove(path); }

    [[nodiscard]] std::optional<ASRError::Kind> load(const std::string& content) const
    {
        std::ofstream(path, std::ios::binary) << content;
        return errorOf([this] { GgufFile file(path); });
    }
    /// A whole model of a few kilobytes.
    std::string smallModel(const std::map<std::string, GgufValue>& extra = {}, ggml_type type = GGML_TYPE_F32,
                           std::int32_t width = 4)
    {
        EncoderParameters p = hybridShape();
        p.vocabularySize = 5;
        p.stateSize = width;
        p.headCount = 2;
        p.layerCount = 1;
        p.melBands = 8;
        p.subsamplingChannels = width / 2;
        writeRandomCtcModel(path, p, type, extra);
        return contentOf(path);
    }
    /// Whatever comes out: probabilities or an ASRError.
    void listenWith(const std::filesystem::path& model) const
    {
        static_cast<void>(errorOf([&] {
            const auto spotter = std::make_shared<CtcKeywordSpotter>(CtcModel::load(model, moduleFolders()));
            WindowPool pool(spotter->model->network(), {1, false, {}, {}});
            CtcSpotting spotting(spotter, pool);
            spotting.append(samples);
            pool.hurry();
            frames = spotting.finish({}).frames;
        }));
    }
    static std::string with(std::string content, std::size_t offset, std::uint64_t value, std::size_t bytes = 8)
    {
        std::memcpy(&content[offset], &value, bytes);
        return content;
    }

    const std::filesystem::path path =
        std::filesystem::path(::testing::TempDir()) / ("vantro-gguf-" + std::to_string(::getpid()));
    const std::vector<float> samples = recording("sentence-02.flac");
    mutable std::size_t frames = 0;
};

constexpr std::size_t versionOffset = 4;
constexpr std::size_t tensorCountOffset = 8;
constexpr std::size_t pairCountOffset = 16;

} // namespace

TEST_F(GgufFiles, AFileCutOffAnywhereIsRefused)
{
    const std::string whole = smallModel();
    ASSERT_EQ(load(whole), std::nullopt);
    // Every length within the directory, every few bytes in the numbers. The last tensor may be followed by padding.
    for (std::size_t length = 0; length + 32 < whole.size(); length += length < 6'000 ? 11 : 997)
        ASSERT_EQ(load(whole.substr(0, length)), ASRError::Kind::modelLoadFailed) << length << " of " << whole.size();
    EXPECT_EQ(load(whole + std::string(33, 'x')), ASRError::Kind::modelLoadFailed);
    EXPECT_EQ(load("GGML" + whole.substr(4)), ASRError::Kind::modelLoadFailed);
    for (const std::uint64_t version : {0, 1, 2, 4, -1})
        EXPECT_EQ(load(with(whole, versionOffset, version, 4)), ASRError::Kind::modelLoadFailed) << version;
    EXPECT_EQ(errorOf([] { GgufFile file("/nowhere/model.gguf"); }), ASRError::Kind::modelLoadFailed);
    EXPECT_EQ(errorOf([] { GgufFile file(dataFolder() / "parakeet-micro-tdt.bin"); }), ASRError::Kind::modelLoadFailed);
}

TEST_F(GgufFiles, CountsThatPromiseTooMuchAreRefusedBeforeAnythingIsAllocated)
{
    const std::string whole = smallModel();
    const std::size_t tokens = whole.find("tokenizer.ggml.tokens") + 21 + 4;
    const std::size_t name = whole.find("ctc_decoder.weight");
    for (const std::size_t offset :
         {tensorCountOffset, pairCountOffset, tokens + 4, tokens + 12, name - 8, name + 18 + 4})
        for (const std::uint64_t value : {~0ULL, 1ULL << 63, 1ULL << 40, 1ULL << 32, 0xffffULL})
            EXPECT_EQ(load(with(whole, offset, value)), ASRError::Kind::modelLoadFailed) << offset << " " << value;
    EXPECT_EQ(load(with(whole, tensorCountOffset, 0)), ASRError::Kind::modelLoadFailed);
    EXPECT_EQ(load(with(whole, pairCountOffset, 0)), ASRError::Kind::modelLoadFailed);
    // An array of arrays.
    EXPECT_EQ(load(with(whole, tokens, 9, 4)), ASRError::Kind::modelLoadFailed);
}

TEST_F(GgufFiles, KeysAndTensorsThatAreMissingTwiceThereOrOfAnotherTypeAreRefused)
{
    const std::string whole = smallModel();
    for (const std::string name :
         {"parakeet-ctc.n_fft", "tokenizer.ggml.scores", "general.architecture", "encoder.pre_encode.out.weight",
          "ctc_decoder.bias", "preprocessor.fb", "encoder.layers.0.self_attn.linear_q.bias"}) {
        std::string renamed = whole;
        renamed[whole.find(name)] = 'X';
        EXPECT_EQ(load(renamed), ASRError::Kind::modelLoadFailed) << name;
    }
    const auto renamed = [&whole](const std::string& from, const std::string& to) {
        std::string content = whole;
        return content.replace(content.find(from), from.size(), to);
    };
    EXPECT_EQ(load(renamed("parakeet-ctc.mel_bins", "parakeet-ctc.blank_id")), ASRError::Kind::modelLoadFailed);
    EXPECT_EQ(load(renamed("encoder.layers.0.self_attn.linear_q.bias", "encoder.layers.0.self_attn.linear_k.bias")),
              ASRError::Kind::modelLoadFailed);
    for (const std::string key :
         {"parakeet-ctc.vocab_size", "parakeet-ctc.blank_id", "tokenizer.ggml.unknown_token_id"})
        for (const std::uint64_t type : {0, 6, 7, 8, 9, 13, 77})
            EXPECT_EQ(load(with(whole, whole.find(key) + key.size(), type, 4)), ASRError::Kind::modelLoadFailed)
                << key << " as type " << type;
    const std::string tensor = "encoder.layers.0.norm_out.bias";
    const std::size_t shape = whole.find(tensor) + tensor.size() + 4;
    for (const std::uint64_t extent : {0ULL, 3ULL, 1ULL << 23, ~0ULL})
        EXPECT_EQ(load(with(whole, shape, extent)), ASRError::Kind::modelLoadFailed) << extent;
    for (const std::uint64_t type : {1, 2, 4, 5, 8, 39, 1'000})
        EXPECT_EQ(load(with(whole, shape + 8, type, 4)), ASRError::Kind::modelLoadFailed) << "type " << type;
    for (const std::uint64_t offset : {0ULL, 8ULL, 1ULL << 62, ~0ULL})
        EXPECT_EQ(load(with(whole, shape + 12, offset)), ASRError::Kind::modelLoadFailed) << "offset " << offset;
}

TEST_F(GgufFiles, AModelWhoseFramesOrArithmeticDifferIsRefused)
{
    const std::string prefix = "parakeet-ctc.";
    for (const auto& [key, value] : std::map<std::string, GgufValue>{{"sample_rate", std::uint32_t(8'000)},
                                                                     {"hop_length", std::uint32_t(80)},
                                                                     {"frame_duration", 0.04F},
                                                                     {"preemphasis", 0.0F},
                                                                     {"log_guard", 1e-3F},
                                                                     {"std_guard", 0.0F},
                                                                     {"attention.layer_norm_epsilon", 1e-3F},
                                                                     {"batch_norm_epsilon", -1.0F},
                                                                     {"subsampling_factor", std::uint32_t(4)},
                                                                     {"blank_id", std::uint32_t(0)},
                                                                     {"window_length", std::uint32_t(512)},
                                                                     {"feed_forward_length", std::uint32_t(8)}})
        EXPECT_EQ(load(smallModel({{prefix + key, value}})), ASRError::Kind::modelLoadFailed) << key;
    EXPECT_EQ(load(smallModel({{"general.architecture", std::string("llama")}})), ASRError::Kind::modelLoadFailed);
    EXPECT_EQ(load(smallModel({{"tokenizer.ggml.scores", std::vector<float>(4)}})), ASRError::Kind::modelLoadFailed);
    // What this program does not know, it does not mind.
    EXPECT_EQ(load(smallModel({{"general.url", std::string("https://example.com")}})), std::nullopt);
}

/// VANTRO_FUZZ_ROUNDS and VANTRO_FUZZ_SEED make a long run of it. Of the files that are taken, whose damage is in the
/// numbers, some are also listened with.
TEST_F(GgufFiles, RandomDamageNeverDoesMoreThanRefuseTheFile)
{
    const auto setting = [](const char* name, unsigned long fallback) {
        const char* value = std::getenv(name);
        return value != nullptr ? std::strtoul(value, nullptr, 10) : fallback;
    };
    const std::vector<std::string> models = {smallModel(), smallModel({}, GGML_TYPE_Q8_0, 32),
                                             smallModel({}, GGML_TYPE_F16, 32)};
    const unsigned long rounds = setting("VANTRO_FUZZ_ROUNDS", 1'000);
    std::mt19937_64 random(setting("VANTRO_FUZZ_SEED", 1));
    unsigned long refused = 0;
    for (unsigned long round = 0; round < rounds; ++round) {
        std::string damaged = models[random() % models.size()];
        // Mostly where the structure is: in the pairs and the directory.
        for (std::uint64_t i = random() % 4 + 1; i > 0; --i) {
            const std::size_t limit = random() % 4 == 0 ? damaged.size() : 5'000;
            damaged[random() % limit] = static_cast<char>(random() % 3 == 0 ? 0xff : random());
        }
        if (random() % 16 == 0)
            damaged.resize(random() % damaged.size());
        if (load(damaged))
            ++refused;
        else if (round % 8 == 0)
            listenWith(path);
    }
    std::printf("%lu files, %lu refused, %lu loaded\n", rounds, refused, rounds - refused);
    EXPECT_GT(refused, rounds / 4);
    EXPECT_LT(refused, rounds);
}

TEST_F(GgufFiles, TheHybridModelsShapesRunInEveryPrecisionWithAndWithoutBiases)
{
    for (const bool hasBiases : {true, false}) {
        for (const ggml_type type : {GGML_TYPE_F32, GGML_TYPE_F16, GGML_TYPE_Q8_0}) {
            EncoderParameters shape = hybridShape();
            shape.hasBiases = hasBiases;
            if (type != GGML_TYPE_Q8_0)
                shape.layerCount = 1; // the other 16 have the same shapes
            writeRandomCtcModel(path, shape, type);
            frames = 0;
            listenWith(path);
            EXPECT_EQ(frames, static_cast<std::size_t>(Subsampling::encoderFrames(
                                  static_cast<std::int64_t>(samples.size() / Preprocessor::hopSamples + 1))))
                << ggml_type_name(type) << " " << hasBiases;
        }
    }
}
