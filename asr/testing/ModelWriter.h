#pragma once

#include "asr/ModelLayout.h"

#include <ggml.h>

#include <cstdint>
#include <filesystem>
#include <vector>

namespace vantro::asr::testing {

/// The shape of the published models with 0.6 billion parameters, with @p vocabularySize text pieces.
Hyperparameters publishedShape(std::int32_t vocabularySize);

/// Writes a model with seeded random weights in ModelFile's format. It has the shapes and the amount of arithmetic of a
/// real model, and a decoder that emits about as often as for speech, but recognises nothing. Matrices have @p
/// matrixType where their rows fill its blocks; in types that no model is published in they are random bytes.
void writeRandomModel(const std::filesystem::path& path, const Hyperparameters& parameters, ggml_type matrixType,
                      std::uint32_t seed = 1);

/// Converts the matrices of the float32 model @p source to @p matrixType.
void writeRequantised(const std::filesystem::path& path, const std::filesystem::path& source, ggml_type matrixType);

} // namespace vantro::asr::testing
