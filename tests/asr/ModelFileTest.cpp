// Model files that are damaged, foreign or made to do harm; and the shapes of the published models.
#include "asr/ModelFile.h"

#include "asr/kernels/Matrix.h"
#include "asr/testing/ModelWriter.h"
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

class ModelFiles : public ::testing::Test
{
protected:
    ~ModelFiles() override { std::filesystem::remove(path); }

    [[nodiscard]] std::optional<ASRError::Kind> load(const std::string& content) const
    {
        std::ofstream(path, std::ios::binary) << content;
        return errorOf([this] { ModelFile file(path); });
    }
    /// A whole model of a few kilobytes; @p width: of its rows.
    std::string smallModel(ggml_type type = GGML_TYPE_F32, std::int32_t width = 4)
    {
        Hyperparameters p = publishedShape(5);
        p.stateSize = width;
        p.headCount = 2;
        p.layerCount = 1;
        p.melBands = 8;
        p.fftSize = 512;
        p.subsamplingChannels = width / 2;
        p.predictionSize = width;
        writeRandomModel(path, p, type);
        return contentOf(path);
    }
    /// One in each type that ggml knows, whether a matrix can have it or not.
    std::vector<std::string> smallModels()
    {
        std::vector<std::string> models;
        for (int i = 0; i < GGML_TYPE_COUNT; ++i) {
            const auto type = static_cast<ggml_type>(i);
            if (ggml_blck_size(type) > 0)
                models.push_back(smallModel(type, std::max<std::int32_t>(4, static_cast<int>(ggml_blck_size(type)))));
        }
        return models;
    }
    /// Whatever comes out: text or an ASRError.
    static void recogniseWith(const std::filesystem::path& model)
    {
        const std::vector<float> samples = recording("sentence-02.flac");
        static_cast<void>(errorOf([&] {
            AsrManager manager;
            manager.initialize(AsrModels::load(model, AsrModelVersion::v3, moduleFolders()));
            transcribe(manager, samples);
        }));
    }
    static std::string withInteger(std::string content, std::size_t offset, std::int32_t value)
    {
        std::memcpy(&content[offset], &value, sizeof value);
        return content;
    }

    const std::filesystem::path path =
        std::filesystem::path(::testing::TempDir()) / ("vantro-model-" + std::to_string(::getpid()) + ".bin");
};

} // namespace

TEST_F(ModelFiles, AFileCutOffAnywhereIsRefused)
{
    const std::string whole = smallModel();
    ASSERT_EQ(load(whole), std::nullopt);
    // Every length within the small structures, every few bytes in the long runs of numbers; also one byte too many.
    for (std::size_t length = 0; length < whole.size(); length += length < 128 || length > 15'000 ? 1 : 61)
        ASSERT_EQ(load(whole.substr(0, length)), ASRError::Kind::modelLoadFailed) << length << " of " << whole.size();
    EXPECT_EQ(load(whole + "x"), ASRError::Kind::modelLoadFailed);
    EXPECT_EQ(load("RIFF" + whole.substr(4)), ASRError::Kind::modelLoadFailed);
    EXPECT_EQ(errorOf([] { ModelFile file("/nowhere/model.bin"); }), ASRError::Kind::modelLoadFailed);
    EXPECT_EQ(errorOf([] { ModelFile file("/"); }), ASRError::Kind::modelLoadFailed);
}

TEST_F(ModelFiles, HeadersThatPromiseTooMuchAreRefusedBeforeAnythingIsAllocated)
{
    const std::string whole = smallModel();
    constexpr std::size_t headerIntegers = 16;
    for (std::size_t i = 0; i < headerIntegers; ++i) {
        for (const std::int32_t value :
             {-1, 0, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
            const bool mayBeAnything = i == 7 || i == 2; // file type; audio context, of which only the range matters
            const auto outcome = load(withInteger(whole, i * sizeof value, value));
            EXPECT_TRUE(mayBeAnything || outcome == ASRError::Kind::modelLoadFailed)
                << "integer " << i << " = " << value;
        }
    }
}

TEST_F(ModelFiles, MissingRenamedAndMisshapenTensorsAreRefused)
{
    const std::string whole = smallModel();
    for (const std::string name :
         {"encoder.pre_encode.out.weight", "encoder.layers.0.self_attn.pos_bias_u", "joint.enc.bias",
          "encoder.layers.0.feed_forward1.linear1.weight", "decoder.prediction.dec_rnn.lstm.bias_h_l1"}) {
        const std::size_t place = whole.find(name);
        ASSERT_NE(place, std::string::npos);
        std::string renamed = whole;
        renamed[place] = 'X';
        EXPECT_EQ(load(renamed), ASRError::Kind::modelLoadFailed) << name;
        for (const std::int32_t extent : {0, -4, 3, 1 << 23})
            EXPECT_EQ(load(withInteger(whole, place - sizeof extent, extent)), ASRError::Kind::modelLoadFailed)
                << name << " " << extent;
    }
    const std::string vector = "joint.pred.bias";
    const std::size_t type = whole.find(vector) - 2 * sizeof(std::int32_t);
    for (const std::int32_t wrong : {1, 4, 5, 8, 39, 1'000, -1})
        EXPECT_EQ(load(withInteger(whole, type, wrong)), ASRError::Kind::modelLoadFailed) << "type " << wrong;
}

TEST_F(ModelFiles, AMatrixOfAnyTypeIsRecognisedWithOrRefused)
{
    int recognisedWith = 0;
    for (const std::string& content : smallModels()) {
        if (load(content))
            continue;
        recogniseWith(path);
        ++recognisedWith;
    }
    EXPECT_GT(recognisedWith, 20);
    // ggml would multiply with these by ending the program.
    for (const ggml_type type : {GGML_TYPE_Q8_1, GGML_TYPE_Q8_K, GGML_TYPE_I32, GGML_TYPE_F64})
        EXPECT_EQ(load(smallModel(type, 256)), ASRError::Kind::modelLoadFailed) << ggml_type_name(type);
}

/// VANTRO_FUZZ_ROUNDS and VANTRO_FUZZ_SEED make a long run of it. Of the files that are taken, whose damage is in the
/// numbers, some are also recognised with.
TEST_F(ModelFiles, RandomDamageNeverDoesMoreThanRefuseTheFile)
{
    const auto setting = [](const char* name, unsigned long fallback) {
        const char* value = std::getenv(name);
        return value != nullptr ? std::strtoul(value, nullptr, 10) : fallback;
    };
    std::vector<std::string> models = smallModels();
    const unsigned long rounds = setting("VANTRO_FUZZ_ROUNDS", 3'000);
    std::mt19937_64 random(setting("VANTRO_FUZZ_SEED", 1));
    unsigned long refused = 0;
    for (unsigned long round = 0; round < rounds; ++round) {
        std::string damaged = models[random() % models.size()];
        // Mostly where the structure is: in the header and the first tensors' headers.
        for (int i = 0; i < 3; ++i) {
            const std::size_t limit = random() % 2 == 0 ? 200 : damaged.size();
            damaged[random() % limit] = static_cast<char>(random());
        }
        if (load(damaged))
            ++refused;
        else if (round % 8 == 0)
            recogniseWith(path);
    }
    std::printf("%lu files, %lu refused, %lu loaded\n", rounds, refused, rounds - refused);
    EXPECT_GT(refused, rounds / 4);
}

TEST_F(ModelFiles, WeightsThatAreNoNumbersGiveSomeTextAndNoCrash)
{
    std::string content = contentOf(dataFolder() / "parakeet-micro-tdt-f32.bin");
    const std::size_t name = content.find("joint.joint_net.2.weight");
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (std::size_t i = 0; i < 20'000; ++i)
        std::memcpy(&content[name + 64 + 4 * i], &nan, sizeof nan);
    std::ofstream(path, std::ios::binary) << content;
    AsrManager manager;
    manager.initialize(AsrModels::load(path, AsrModelVersion::v2, moduleFolders()));
    EXPECT_LE(transcribe(manager, recording("sentence-01.flac")).text.size(), 10'000U);
}

/// Matrices that are used where they stand in the file are not touched any more when it has been cut off.
TEST_F(ModelFiles, AFileThatIsCutOffWhileItsModelIsInUseIsAnErrorAndNotTheEnd)
{
    std::filesystem::copy_file(dataFolder() / "parakeet-micro-tdt.bin", path);
    AsrManager manager;
    manager.initialize(AsrModels::load(path, AsrModelVersion::v2, moduleFolders()));
    const std::vector<float> samples = recording("sentence-02.flac");
    EXPECT_EQ(transcribe(manager, samples).text, "Good morning, Peter.");
    std::filesystem::resize_file(path, 100);
    const bool staysInFile = kernels::matrixKernels(kernels::MatrixFormat::float16) != nullptr;
    EXPECT_EQ(errorOf([&] { transcribe(manager, samples); }) == ASRError::Kind::processingFailed, staysInFile);
    manager.initialize(loadMicro());
    EXPECT_EQ(transcribe(manager, samples).text, "Good morning, Peter.");
}

TEST_F(ModelFiles, ThePublishedShapesRunInEveryPrecision)
{
    const std::vector<float> samples = recording("sentence-02.flac");
    for (const std::int32_t vocabulary : {1'024, 8'192}) {
        for (const ggml_type type : {GGML_TYPE_F16, GGML_TYPE_Q8_0, GGML_TYPE_Q5_0, GGML_TYPE_Q4_1}) {
            Hyperparameters shape = publishedShape(vocabulary);
            shape.layerCount = 1; // the other 23 have the same shapes
            writeRandomModel(path, shape, type);
            const auto models = AsrModels::load(path, AsrModelVersion::v3, moduleFolders());
            EXPECT_EQ(models->configuration.blankId, vocabulary);
            EXPECT_EQ(models->configuration.encoderHiddenSize, 1'024);
            AsrManager manager;
            manager.initialize(models);
            const ASRResult result = transcribe(manager, samples);
            EXPECT_GT(result.duration.count(), 1.9) << ggml_type_name(type) << " " << vocabulary;
            for (const TokenTiming& timing : *result.tokenTimings)
                EXPECT_TRUE(timing.confidence > 0) << ggml_type_name(type) << " " << vocabulary;
        }
    }
}
