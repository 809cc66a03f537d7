#pragma once

#include "asr/ModelLayout.h"

#include <ggml.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace vantro::asr::testing {

using GgufValue = std::variant<std::uint32_t, float, bool, std::string, std::vector<std::string>, std::vector<float>>;

/// The pairs of a CTC model's GGUF file.
std::map<std::string, GgufValue> ctcPairs(const EncoderParameters& parameters, std::int32_t windowSize);

/// The encoder of the hybrid model with 110 million parameters, which has biases.
EncoderParameters hybridShape();

/// Writes a CTC model with seeded random weights. Matrices have @p matrixType where their rows fill its blocks. @p
/// extra pairs replace those of the same name.
void writeRandomCtcModel(const std::filesystem::path& path, const EncoderParameters& parameters, ggml_type matrixType,
                         const std::map<std::string, GgufValue>& extra = {});

/// Converts the float16 matrices of the CTC model @p source to @p matrixType.
void writeRequantisedCtc(const std::filesystem::path& path, const std::filesystem::path& source, ggml_type matrixType);

} // namespace vantro::asr::testing
