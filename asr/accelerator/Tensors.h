#pragma once

#include <ggml.h>

#include <cstddef>
#include <cstdint>

// Shorthands for ggml's tensors.
namespace vantro::asr {

inline std::size_t sizeOf(std::int64_t extent)
{
    return static_cast<std::size_t>(extent);
}

inline std::size_t rowCount(const ggml_tensor& tensor)
{
    return sizeOf(ggml_nrows(&tensor));
}

inline float* floats(const ggml_tensor& tensor)
{
    return static_cast<float*>(tensor.data);
}

/// The other operand of an operation whose one operand is @p operand.
inline const ggml_tensor& otherOperand(const ggml_tensor& operation, const ggml_tensor& operand)
{
    return operation.src[0] == &operand ? *operation.src[1] : *operation.src[0];
}

/// Whether nothing of one lies in the memory of the other.
inline bool isApart(const ggml_tensor& left, const ggml_tensor& right)
{
    const auto* first = static_cast<const std::byte*>(left.data);
    const auto* second = static_cast<const std::byte*>(right.data);
    return first + ggml_nbytes(&left) <= second || second + ggml_nbytes(&right) <= first;
}

} // namespace vantro::asr
