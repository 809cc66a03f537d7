// Measures the recogniser's matrix products on one core, by format and instruction set: products [FOLDER...]
// FOLDER: where ggml's module for this processor is, for its own products; without one, beside the program.
#include "asr/Compute.h"
#include "asr/kernels/Matrix.h"
#include "platform/ThisProcess.h"

#include <ggml.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <random>
#include <vector>

namespace {

using namespace vantro::asr;
using namespace vantro::asr::kernels;

constexpr std::size_t inputs = 1'024;
constexpr std::size_t outputs = 4'096;
constexpr int rounds = 15;

struct Format
{
    MatrixFormat format;
    ggml_type type;
};

constexpr Format formats[] = {{MatrixFormat::float16, GGML_TYPE_F16},
                              {MatrixFormat::q8, GGML_TYPE_Q8_0},
                              {MatrixFormat::q5, GGML_TYPE_Q5_0},
                              {MatrixFormat::q4, GGML_TYPE_Q4_0}};

constexpr const char* levelNames[] = {"baseline",     "AVX2",         "AVX-VNNI",    "AVX-512",
                                      "AVX-512 VNNI", "AVX-512 BF16", "dot product", "i8mm"};

/// Of this thread's processor time; other programs on the machine hardly show.
double seconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

/// The best of some rounds.
template <typename Action>
double gigaflops(std::size_t columns, Action action)
{
    double best = 1e9;
    for (int i = 0; i < rounds; ++i) {
        const double begun = seconds();
        action();
        best = std::min(best, seconds() - begun);
    }
    return 2e-9 * static_cast<double>(inputs * outputs * columns) / best;
}

std::vector<float> randomValues(std::size_t count)
{
    std::minstd_rand random(1);
    std::normal_distribution<float> normal;
    std::vector<float> values(count);
    for (float& value : values)
        value = normal(random);
    return values;
}

std::vector<char> storedMatrix(ggml_type type)
{
    const std::vector<float> weights = randomValues(inputs * outputs);
    std::vector<char> stored(ggml_row_size(type, inputs) * outputs);
    ggml_quantize_chunk(type, weights.data(), stored.data(), 0, outputs, inputs, nullptr);
    return stored;
}

double ofGgml(ggml_type type, std::vector<char>& stored, std::size_t columns)
{
    Graph graph(8);
    ggml_tensor* matrix = ggml_new_tensor_2d(graph.context(), type, inputs, outputs);
    matrix->data = stored.data();
    ggml_tensor* values = graph.input(inputs, static_cast<std::int64_t>(columns));
    graph.output(ggml_mul_mat(graph.context(), matrix, values));
    GraphRunner runner(1);
    runner.allocate(graph);
    setTensor(values, randomValues(inputs * columns));
    return gigaflops(columns, [&] { runner.compute(graph.get(), {}); });
}

double ofKernels(const MatrixKernels& kernels, const std::vector<char>& stored, std::size_t columns)
{
    const std::vector<float> values = randomValues(inputs * columns);
    std::vector<char> activations(kernels.activationBytes(inputs, columns));
    std::vector<float> result(outputs * columns);
    return gigaflops(columns, [&] {
        kernels.packActivations(values.data(), inputs, columns, activations.data(), {});
        kernels.multiply(stored.data(), inputs, outputs, activations.data(), columns, nullptr, result.data(), {});
    });
}

void measure(const Format& format, std::size_t columns)
{
    std::vector<char> stored = storedMatrix(format.type);
    std::printf("%s, %zu columns: ggml %.0f", ggml_type_name(format.type), columns,
                ofGgml(format.type, stored, columns));
    const MatrixKernels* former = nullptr;
    for (const Level level : levels) {
        const MatrixKernels* kernels = matrixKernels(format.format, level);
        if (kernels != former)
            std::printf(", %s %.0f", levelNames[static_cast<std::size_t>(level)], ofKernels(*kernels, stored, columns));
        former = kernels;
    }
    std::printf(" GFLOP/s\n");
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::filesystem::path> folders(argv + 1, argv + argc);
    folders.push_back(vantro::process::programFile().parent_path());
    loadProcessorModule(folders);
    for (const Format& format : formats) {
        for (const std::size_t columns : {38U, 138U, 188U})
            measure(format, columns);
    }
}
