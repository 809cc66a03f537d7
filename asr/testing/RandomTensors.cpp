#include "asr/testing/RandomTensors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

namespace vantro::asr::testing {

namespace {

/// Whether models are published in that type.
bool isPublished(ggml_type type)
{
    constexpr std::array published = {GGML_TYPE_F16,  GGML_TYPE_BF16, GGML_TYPE_Q4_0, GGML_TYPE_Q4_1,
                                      GGML_TYPE_Q5_0, GGML_TYPE_Q5_1, GGML_TYPE_Q8_0};
    return std::ranges::find(published, type) != published.end();
}

std::size_t elementsOf(const TensorLayout& tensor)
{
    std::size_t count = 1;
    for (const auto extent : tensor.shape)
        count *= static_cast<std::size_t>(extent);
    return count;
}

} // namespace

std::vector<float> randomValues(const TensorLayout& tensor, std::minstd_rand& random)
{
    const std::size_t count = elementsOf(tensor);
    const bool isPositive = tensor.name.ends_with("running_var") ||
                            (tensor.name.ends_with(".weight") && tensor.name.find("norm") != std::string::npos);
    if (isPositive)
        return std::vector<float>(count, 1.0F);
    const bool isConvolution = tensor.name.find("conv") != std::string::npos && !tensor.isMatrix;
    const auto inputs = static_cast<float>(isConvolution ? 9 : tensor.shape[0]);
    const float scale = tensor.isMatrix || isConvolution ? std::sqrt(3.0F / inputs) : 0.02F;
    std::vector<float> values(count);
    constexpr auto range = static_cast<float>(std::minstd_rand::max());
    for (float& value : values)
        value = scale * (2.0F * static_cast<float>(random()) / range - 1.0F);
    return values;
}

std::vector<float> filterValues(const TensorLayout& tensor, const EncoderParameters& p)
{
    std::vector<float> values;
    if (tensor.dimensions == 1) {
        const auto size = static_cast<std::size_t>(tensor.shape[0]);
        for (std::size_t i = 0; i < size; ++i)
            values.push_back(0.5F - 0.5F * std::cos(2 * std::numbers::pi_v<float> * static_cast<float>(i) /
                                                    static_cast<float>(size - 1)));
        return values;
    }
    const float width = static_cast<float>(p.frequencyBins()) / static_cast<float>(p.melBands + 1);
    for (std::int32_t band = 0; band < p.melBands; ++band) {
        for (std::int32_t bin = 0; bin < p.frequencyBins(); ++bin)
            values.push_back(
                std::max(0.0F, 1.0F - std::abs(static_cast<float>(bin) / width - static_cast<float>(band + 1))));
    }
    return values;
}

PackedTensor packed(const TensorLayout& tensor, std::span<const float> values, ggml_type matrixType)
{
    PackedTensor result{tensor.isMatrix ? matrixType : GGML_TYPE_F32, {}};
    if (tensor.shape[0] % ggml_blck_size(result.type) != 0)
        result.type = GGML_TYPE_F32;
    const std::int64_t rows = static_cast<std::int64_t>(values.size()) / tensor.shape[0];
    result.bytes.resize(ggml_row_size(result.type, tensor.shape[0]) * static_cast<std::size_t>(rows));
    if (result.type == GGML_TYPE_F32)
        std::memcpy(result.bytes.data(), values.data(), values.size_bytes());
    else if (isPublished(result.type))
        ggml_quantize_chunk(result.type, values.data(), result.bytes.data(), 0, rows, tensor.shape[0], nullptr);
    else
        std::ranges::generate(result.bytes,
                              [random = std::minstd_rand()]() mutable { return std::byte(random() & 0xff); });
    return result;
}

} // namespace vantro::asr::testing
