// An encoder of ggml's operations, as whisper's is built, with and without the accelerator.
#include "asr/accelerator/Accelerator.h"

#include "asr/Compute.h"
#include "asr/accelerator/Crew.h"
#include "asr/kernels/Matrix.h"
#include "asr/kernels/Rows.h"
#include "tests/asr/AsrTestSupport.h"

#include <ggml-backend.h>
#include <ggml.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <filesystem>
#include <memory>
#include <random>
#include <vector>

using namespace vantro::asr;

namespace {

constexpr std::int64_t bands = 10; // three taps of each: no multiple of 32
constexpr std::int64_t frames = 77;
constexpr std::int64_t paddedFrames = 96;
constexpr std::int64_t state = 128;
constexpr std::int64_t heads = 2;

/// The back ends that the accelerator makes faster, and that itself if it is wanted.
class Backends
{
public:
    explicit Backends(bool isAccelerated)
    {
        if (isAccelerated)
            add(GGML_BACKEND_DEVICE_TYPE_ACCEL);
        add(GGML_BACKEND_DEVICE_TYPE_CPU);
        std::vector<ggml_backend_t> all;
        for (const auto& backend : backends_)
            all.push_back(backend.get());
        scheduler_.reset(ggml_backend_sched_new(all.data(), nullptr, static_cast<int>(all.size()), 256, false, true));
    }

    [[nodiscard]] ggml_backend_sched_t scheduler() const { return scheduler_.get(); }
    template <typename Function, typename... Arguments>
    void call(const char* name, Arguments... arguments) const
    {
        for (const auto& backend : backends_) {
            ggml_backend_reg_t registry = ggml_backend_dev_backend_reg(ggml_backend_get_device(backend.get()));
            reinterpret_cast<Function>(ggml_backend_reg_get_proc_address(registry, name))(backend.get(), arguments...);
        }
    }

private:
    struct SchedulerDeleter
    {
        void operator()(ggml_backend_sched_t scheduler) const { ggml_backend_sched_free(scheduler); }
    };

    void add(enum ggml_backend_dev_type type)
    {
        ggml_backend_dev_t device = ggml_backend_dev_by_type(type);
        ASSERT_NE(device, nullptr);
        backends_.emplace_back(ggml_backend_dev_init(device, nullptr));
    }

    std::vector<GgmlPointer<ggml_backend>> backends_;
    std::unique_ptr<ggml_backend_sched, SchedulerDeleter> scheduler_;
};

/// Random weights, the same for each object.
class SmallEncoder
{
public:
    explicit SmallEncoder(ggml_type type) : type_(type)
    {
        for (ggml_tensor** tensor : {&firstTaps, &secondTaps})
            *tensor = ggml_new_tensor_3d(context(), GGML_TYPE_F16, 3, tensor == &firstTaps ? bands : state, state);
        for (ggml_tensor** tensor : {&firstBias, &secondBias})
            *tensor = ggml_new_tensor_2d(context(), GGML_TYPE_F32, 1, state);
        for (ggml_tensor** tensor : {&scale, &shift, &bias})
            *tensor = ggml_new_tensor_1d(context(), GGML_TYPE_F32, state);
        for (ggml_tensor** tensor : {&query, &key, &value, &mixed})
            *tensor = ggml_new_tensor_2d(context(), type, state, state);
        wide = ggml_new_tensor_2d(context(), type, state, 4 * state);
        narrow = ggml_new_tensor_2d(context(), type, 4 * state, state);
        positions = ggml_new_tensor_2d(context(), GGML_TYPE_F32, state, 8);
        wideBias = ggml_new_tensor_1d(context(), GGML_TYPE_F32, 4 * state);
        keys = ggml_new_tensor_1d(context(), GGML_TYPE_F16, paddedFrames * state);
        values = ggml_new_tensor_1d(context(), GGML_TYPE_F16, paddedFrames * state);
        weights_.reset(ggml_backend_alloc_ctx_tensors_from_buft(context(), ggml_backend_cpu_buffer_type()));
        ggml_backend_buffer_set_usage(weights_.get(), GGML_BACKEND_BUFFER_USAGE_WEIGHTS);
        ggml_backend_buffer_clear(weights_.get(), 0);
        for (ggml_tensor* tensor = ggml_get_first_tensor(context()); tensor != nullptr;
             tensor = ggml_get_next_tensor(context(), tensor))
            fill(tensor);
    }

    /// A step of a decoder, some of whose tokens do not see all keys of the encoder's last run.
    std::vector<float> decode(const Backends& backends, std::int64_t tokens)
    {
        Graph graph(128);
        ggml_context* c = graph.context();
        ggml_tensor* words = graph.integerInput(tokens);
        ggml_tensor* places = graph.integerInput(tokens);
        ggml_tensor* mask = graph.input(paddedFrames, tokens);
        ggml_tensor* input = ggml_add(c, ggml_get_rows(c, wide, words), ggml_get_rows(c, positions, places));
        ggml_tensor* queries = ggml_add(c, ggml_mul_mat(c, query, normalised(c, input)), bias);
        queries = ggml_permute(c, ggml_reshape_3d(c, queries, state / heads, heads, tokens), 0, 2, 1, 3);
        ggml_tensor* own = ggml_flash_attn_ext(c, queries, headsOf(c, keys), headsOf(c, values),
                                               ggml_cast(c, mask, GGML_TYPE_F16), 0.125F, 0, 0);
        ggml_tensor* heard = ggml_flash_attn_ext(c, queries, headsOf(c, keys), headsOf(c, values), nullptr, 0.1F, 0, 0);
        ggml_tensor* result = ggml_reshape_2d(c, ggml_add(c, own, heard), state, tokens);
        result = ggml_add(c, ggml_add(c, ggml_mul_mat(c, mixed, result), bias), input);
        result = ggml_gelu(c, ggml_add(c, ggml_mul_mat(c, wide, normalised(c, result)), wideBias));
        graph.output(result);
        start(backends, graph);
        const std::vector<std::int32_t> numbers{7, 0, 3};
        for (ggml_tensor* indices : {words, places})
            ggml_backend_tensor_set(indices, numbers.data(), 0, ggml_nbytes(indices));
        std::vector<float> seen(static_cast<std::size_t>(paddedFrames * tokens), 0.0F);
        std::fill(seen.begin() + 50, seen.begin() + paddedFrames, -INFINITY);
        setTensor(mask, seen);
        EXPECT_EQ(ggml_backend_sched_graph_compute(backends.scheduler(), graph.get()), GGML_STATUS_SUCCESS);
        return tensorValues(result);
    }

    /// Its graph on an input that is the same each time.
    std::vector<float> run(const Backends& backends, ggml_status* status = nullptr)
    {
        Graph graph(128);
        ggml_tensor* mel = graph.input(2 * frames, bands);
        graph.output(encoded(graph.context(), mel, graph.get()));
        start(backends, graph);
        std::mt19937 random(3);
        setTensor(mel, randomValues(2 * frames * bands, random));
        const ggml_status end = ggml_backend_sched_graph_compute(backends.scheduler(), graph.get());
        if (status != nullptr)
            *status = end;
        return tensorValues(ggml_graph_node(graph.get(), -1));
    }

private:
    static void start(const Backends& backends, const Graph& graph)
    {
        ggml_backend_sched_reset(backends.scheduler());
        EXPECT_TRUE(ggml_backend_sched_alloc_graph(backends.scheduler(), graph.get()));
    }
    static std::vector<float> randomValues(std::int64_t count, std::mt19937& random)
    {
        std::normal_distribution<float> normal(0, 0.3F);
        std::vector<float> result(static_cast<std::size_t>(count));
        std::ranges::generate(result, [&] { return normal(random); });
        return result;
    }
    void fill(ggml_tensor* tensor)
    {
        if (tensor == keys || tensor == values) // what lies behind the frames is zero
            return;
        const std::vector<float> numbers = randomValues(ggml_nelements(tensor), random_);
        ggml_quantize_chunk(tensor->type, numbers.data(), tensor->data, 0, ggml_nrows(tensor), tensor->ne[0], nullptr);
        if (tensor->type == GGML_TYPE_F32)
            setTensor(tensor, numbers);
    }
    [[nodiscard]] ggml_context* context() const { return tensors_.get(); }

    [[nodiscard]] ggml_tensor* normalised(ggml_context* c, ggml_tensor* input) const
    {
        return ggml_add(c, ggml_mul(c, ggml_norm(c, input, 1e-5F), scale), shift);
    }
    /// The rows of each head of what was stored.
    [[nodiscard]] static ggml_tensor* headsOf(ggml_context* c, ggml_tensor* stored)
    {
        return ggml_view_3d(c, stored, state / heads, paddedFrames, heads, 2 * state, 2 * state / heads, 0);
    }
    [[nodiscard]] ggml_tensor* attended(ggml_context* c, ggml_tensor* input, ggml_cgraph* graph) const
    {
        ggml_tensor* queries = ggml_add(c, ggml_mul_mat(c, query, input), bias);
        ggml_tensor* inputKeys = ggml_scale(c, ggml_mul_mat(c, key, input), 0.8F);
        ggml_tensor* inputValues = ggml_add(c, ggml_mul_mat(c, value, input), bias);
        queries = ggml_permute(c, ggml_reshape_3d(c, queries, state / heads, heads, frames), 0, 2, 1, 3);
        ggml_build_forward_expand(graph, ggml_cpy(c, inputKeys, ggml_view_1d(c, keys, frames * state, 0)));
        ggml_build_forward_expand(graph, ggml_cpy(c, inputValues, ggml_view_1d(c, values, frames * state, 0)));
        ggml_tensor* result =
            ggml_flash_attn_ext(c, queries, headsOf(c, keys), headsOf(c, values), nullptr, 0.125F, 0, 0);
        return ggml_add(c, ggml_mul_mat(c, mixed, ggml_reshape_2d(c, result, state, frames)), bias);
    }
    [[nodiscard]] ggml_tensor* encoded(ggml_context* c, ggml_tensor* mel, ggml_cgraph* graph) const
    {
        ggml_tensor* sound = ggml_gelu(c, ggml_add(c, ggml_conv_1d_ph(c, firstTaps, mel, 1, 1), firstBias));
        sound = ggml_gelu(c, ggml_add(c, ggml_conv_1d_ph(c, secondTaps, sound, 2, 1), secondBias));
        ggml_tensor* input = ggml_cont(c, ggml_transpose(c, sound));
        ggml_tensor* middle = ggml_add(c, attended(c, normalised(c, input), graph), input);
        ggml_tensor* result = ggml_add(c, ggml_mul_mat(c, wide, normalised(c, middle)), wideBias);
        result = ggml_add(c, ggml_mul_mat(c, narrow, ggml_gelu(c, result)), bias);
        // The sum is put where its first operand was.
        return normalised(c, ggml_add(c, middle, result));
    }

    ggml_type type_;
    GgmlContext tensors_{32 * ggml_tensor_overhead()};
    GgmlPointer<ggml_backend_buffer> weights_;
    std::mt19937 random_{5};
    ggml_tensor *firstTaps, *secondTaps, *firstBias, *secondBias, *scale, *shift, *bias, *wideBias, *positions;
    ggml_tensor *query, *key, *value, *mixed, *wide, *narrow, *keys, *values;
};

double differenceOf(const std::vector<float>& left, const std::vector<float>& right)
{
    double squares = 0;
    double sum = 0;
    for (std::size_t i = 0; i < left.size(); ++i) {
        squares += std::pow(static_cast<double>(left[i]) - static_cast<double>(right[i]), 2);
        sum += std::pow(static_cast<double>(right[i]), 2);
    }
    return std::sqrt(squares / sum);
}

class Accelerated : public ::testing::Test
{
protected:
    void SetUp() override
    {
        loadProcessorModule(vantro::asr::testing::moduleFolders());
        if (!accelerator::announce())
            GTEST_SKIP() << "this processor has nothing to offer";
    }
    void TearDown() override
    {
        accelerator::limit(kernels::highestLevel);
        accelerator::hurry(0);
        accelerator::includeFewRows(false);
    }
};

} // namespace

TEST_F(Accelerated, AnEncoderGivesWhatGgmlGivesOnEveryInstructionSet)
{
    const Backends plain(false);
    const Backends both(true);
    for (const ggml_type type : {GGML_TYPE_F16, GGML_TYPE_Q8_0, GGML_TYPE_Q5_0, GGML_TYPE_Q4_0}) {
        SmallEncoder encoder(type);
        const std::vector<float> expected = encoder.run(plain);
        for (const kernels::Level level : kernels::levels) {
            if (!kernels::isSupported(level) || kernels::matrixKernels(kernels::MatrixFormat::q8, level) == nullptr)
                continue;
            accelerator::limit(level);
            const std::vector<float> result = encoder.run(both);
            EXPECT_LT(differenceOf(result, expected), 0.02) << ggml_type_name(type) << static_cast<int>(level);
#ifdef __x86_64__
            EXPECT_EQ(ggml_backend_sched_get_n_splits(both.scheduler()), 1) << "nothing is left to ggml";
#endif
        }
        accelerator::limit(kernels::Level::baseline);
        EXPECT_EQ(encoder.run(both), expected) << "everything is left to ggml";
    }
}

TEST_F(Accelerated, AStepOfADecoderGivesWhatGgmlGives)
{
    const Backends plain(false);
    const Backends both(true);
    SmallEncoder model(GGML_TYPE_F16);
    model.run(plain);
    for (const std::int64_t tokens : {1, 3}) {
        const std::vector<float> expected = model.decode(plain, tokens);
        EXPECT_EQ(model.decode(both, tokens), expected) << "few rows are left to ggml";
        accelerator::includeFewRows(true);
        for (const kernels::Level level : kernels::levels) {
            if (!kernels::isSupported(level) || kernels::rowKernels(level).multiplyFew == nullptr)
                continue;
            accelerator::limit(level);
            EXPECT_LT(differenceOf(model.decode(both, tokens), expected), 0.002) << static_cast<int>(level);
            EXPECT_EQ(ggml_backend_sched_get_n_splits(both.scheduler()), 1) << "nothing is left to ggml";
        }
        TearDown();
    }
}

TEST_F(Accelerated, TheNumberOfThreadsChangesNoResult)
{
    const auto threadCount = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
    };
    const Backends backends(true);
    SmallEncoder encoder(GGML_TYPE_F16);
    const std::vector<float> alone = encoder.run(backends);
    const std::ptrdiff_t before = threadCount();
    accelerator::hurry(3);
    EXPECT_EQ(encoder.run(backends), alone);
    EXPECT_GE(threadCount(), before + 2);
    accelerator::hurry(0);
    for (const int threads : {2, 5, 1}) {
        backends.call<ggml_backend_set_n_threads_t>("ggml_backend_set_n_threads", threads);
        EXPECT_EQ(encoder.run(backends), alone) << threads;
    }
}

TEST_F(Accelerated, AStopIsHeardInTheMiddleOfAGraph)
{
    const Backends backends(true);
    SmallEncoder encoder(GGML_TYPE_F16);
    const std::vector<float> whole = encoder.run(backends);
    std::atomic<int> left = 20;
    const ggml_abort_callback stop = [](void* count) {
        return --*static_cast<std::atomic<int>*>(count) == 0;
    };
    ggml_status status = GGML_STATUS_SUCCESS;
    backends.call<ggml_backend_set_abort_callback_t>("ggml_backend_set_abort_callback", stop, &left);
    encoder.run(backends, &status);
    EXPECT_EQ(status, GGML_STATUS_ABORTED);
    EXPECT_EQ(left, 0) << "nothing is computed after the stop";
    backends.call<ggml_backend_set_abort_callback_t>("ggml_backend_set_abort_callback", ggml_abort_callback{},
                                                     static_cast<void*>(nullptr));
    EXPECT_EQ(encoder.run(backends), whole);
}

TEST(Crew, DoesEveryPieceOnceWithAnyNumberOfThreads)
{
    Crew crew;
    for (int round = 0; round < 2'000; ++round) {
        crew.setThreads(static_cast<std::size_t>(round % 5));
        const auto pieces = static_cast<std::size_t>(round % 17);
        std::vector<int> done(pieces); // each by one thread
        EXPECT_TRUE(crew.share(
            pieces, [&](std::size_t piece, std::size_t) { ++done[piece]; }, [] { return false; }));
        ASSERT_EQ(std::ranges::count(done, 1), static_cast<std::ptrdiff_t>(pieces)) << "round " << round;
    }
    std::atomic<int> count = 0;
    EXPECT_FALSE(crew.share(
        1'000'000, [&](std::size_t, std::size_t) { ++count; }, [&] { return count > 10; }));
    EXPECT_LT(count, 1'000'000);
}
