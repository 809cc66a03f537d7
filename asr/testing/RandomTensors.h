#pragma once

#include "asr/ModelLayout.h"

#include <ggml.h>

#include <cstddef>
#include <random>
#include <span>
#include <vector>

namespace vantro::asr::testing {

/// Values with which a network of any depth neither dies out nor explodes.
std::vector<float> randomValues(const TensorLayout& tensor, std::minstd_rand& random);

/// A filter bank of overlapping triangles of equal width, which is not the mel scale but the same amount of work; or a
/// Hann window.
std::vector<float> filterValues(const TensorLayout& tensor, const EncoderParameters& parameters);

struct PackedTensor
{
    ggml_type type = GGML_TYPE_F32;
    std::vector<std::byte> bytes;
};
/// A matrix in @p matrixType if its rows fill the type's blocks, random bytes for types that no model is published in;
/// any other tensor as float32.
PackedTensor packed(const TensorLayout& tensor, std::span<const float> values, ggml_type matrixType);

} // namespace vantro::asr::testing
