// The products of every instruction set of this processor against plain arithmetic in double precision.
#include "asr/kernels/Matrix.h"

#include <ggml.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

using namespace vantro::asr::kernels;

namespace {

struct Case
{
    MatrixFormat format;
    ggml_type type;
    double tolerance;
    Level level;
};

void PrintTo(const Case& value, std::ostream* out)
{
    const bool isStored = value.format != MatrixFormat::bfloat16 && value.format != MatrixFormat::int8;
    *out << ggml_type_name(value.type) << (isStored ? " as stored" : "") << ", level " << static_cast<int>(value.level);
}

/// Every format with every instruction set that this processor has for it.
std::vector<Case> cases()
{
    std::vector<Case> result;
    for (const Level level : levels) {
        for (const auto& [format, type, tolerance] : {std::tuple{MatrixFormat::bfloat16, GGML_TYPE_F16, 0.004},
                                                      {MatrixFormat::float16, GGML_TYPE_F16, 0.004},
                                                      {MatrixFormat::int8, GGML_TYPE_Q8_0, 0.012},
                                                      {MatrixFormat::q8, GGML_TYPE_Q8_0, 0.012},
                                                      {MatrixFormat::q5, GGML_TYPE_Q5_0, 0.012},
                                                      {MatrixFormat::q4, GGML_TYPE_Q4_0, 0.012}}) {
            const MatrixKernels* kernels = matrixKernels(format, level);
            const bool isNew = kernels != nullptr && std::ranges::none_of(result, [&](const Case& other) {
                                   return other.format == format && matrixKernels(format, other.level) == kernels;
                               });
            if (isNew)
                result.push_back({format, type, tolerance, level});
        }
    }
    return result;
}

class Matrices : public ::testing::TestWithParam<Case>
{
protected:
    std::vector<float> random(std::size_t count)
    {
        std::normal_distribution<float> normal;
        std::vector<float> values(count);
        for (float& value : values)
            value = normal(engine);
        return values;
    }

    /// As the loader brings a matrix into memory, behind matrixOffset bytes: files align their tensors to nothing.
    std::vector<char> prepared(const std::vector<char>& stored, std::size_t inputs, std::size_t outputs) const
    {
        std::vector<char> matrix(matrixOffset + kernels->matrixBytes(inputs, outputs));
        if (kernels->packMatrix == nullptr) {
            std::copy(stored.begin(), stored.end(), matrix.begin() + matrixOffset);
            return matrix;
        }
        for (std::size_t first = 0; first < outputs; first += panelOutputs)
            kernels->packMatrix(stored.data() + first * (stored.size() / outputs), inputs,
                                std::min(panelOutputs, outputs - first),
                                matrix.data() + matrixOffset + kernels->matrixBytes(inputs, first));
        return matrix;
    }

    /// Of the root mean square of a result.
    [[nodiscard]] double tolerance() const
    {
        // Words, not bytes or bfloat16.
        constexpr double ofWords = 0.0004;
        return GetParam().level == Level::avx2 ? ofWords : GetParam().tolerance;
    }

    static constexpr std::size_t matrixOffset = 3;
    const MatrixKernels* kernels = matrixKernels(GetParam().format, GetParam().level);
    std::mt19937 engine{7};
};

} // namespace

TEST_P(Matrices, GiveWhatPlainArithmeticGivesForEveryShape)
{
    for (const auto& [inputs, outputs, columns] : {std::tuple<std::size_t, std::size_t, std::size_t>{32, 1, 1},
                                                   {64, 32, 5},
                                                   {128, 198, 13},
                                                   {640, 1'030, 1},
                                                   {96, 33, 6},
                                                   {1'024, 64, 25},
                                                   {256, 31, 12},
                                                   {544, 70, 14}}) {
        const std::vector<float> weights = random(inputs * outputs);
        const std::vector<float> values = random(inputs * columns);
        const std::vector<float> bias = random(outputs);
        std::vector<char> stored(ggml_row_size(GetParam().type, static_cast<std::int64_t>(inputs)) * outputs);
        ggml_quantize_chunk(GetParam().type, weights.data(), stored.data(), 0, static_cast<std::int64_t>(outputs),
                            static_cast<std::int64_t>(inputs), nullptr);
        std::vector<float> rounded(weights.size());
        ggml_get_type_traits(GetParam().type)
            ->to_float(stored.data(), rounded.data(), static_cast<std::int64_t>(rounded.size()));

        const std::vector<char> matrix = prepared(stored, inputs, outputs);
        std::vector<char> activations(kernels->activationBytes(inputs, columns));
        constexpr float untouched = 1e9F;
        std::vector<float> result(outputs * columns + 1, untouched);
        for (std::size_t thread = 0; thread < 3; ++thread)
            kernels->packActivations(values.data(), inputs, columns, activations.data(), {thread, 3});
        for (std::size_t thread = 0; thread < 3; ++thread)
            kernels->multiply(matrix.data() + matrixOffset, inputs, outputs, activations.data(), columns, bias.data(),
                              result.data(), {thread, 3});
        double squares = 0;
        for (std::size_t column = 0; column < columns; ++column) {
            for (std::size_t output = 0; output < outputs; ++output) {
                double exact = static_cast<double>(bias[output]);
                for (std::size_t i = 0; i < inputs; ++i)
                    exact += static_cast<double>(rounded[output * inputs + i]) *
                             static_cast<double>(values[column * inputs + i]);
                const double difference = static_cast<double>(result[column * outputs + output]) - exact;
                squares += difference * difference;
            }
        }
        const double relative = std::sqrt(squares / static_cast<double>(inputs * outputs * columns));
        EXPECT_LT(relative, tolerance()) << inputs << " x " << outputs << ", " << columns << " columns";
        EXPECT_EQ(result.back(), untouched);
    }
}

INSTANTIATE_TEST_SUITE_P(Kernels, Matrices, ::testing::ValuesIn(cases()));
// A processor may have none of them.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(Matrices);
