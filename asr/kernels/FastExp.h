#pragma once

#include <cstdint>
#include <cstring>

namespace vantro::asr::kernels {

namespace {

/// e^x to within two units in the last place, without branches or calls, so that loops can be vectorised. The argument
/// is clamped to the range of normal results.
inline float fastExp(float x)
{
    constexpr float limit = 87.0F;
    constexpr float log2OfE = 1.44269504F;
    constexpr float ln2High = 0.693359375F; // 9 bits: its products with small integers are exact
    constexpr float ln2Low = -2.12194440e-4F;
    constexpr float roundToInteger = 12582912.0F; // 1.5 * 2^23: adding it drops the fraction
    x = x > limit ? limit : x;
    x = x < -limit ? -limit : x;
    const float shifted = x * log2OfE + roundToInteger;
    const float n = shifted - roundToInteger;
    const float r = x - n * ln2High - n * ln2Low;
    // Taylor series; for |r| <= ln 2 / 2, the next term is smaller than the last bit.
    float power = 1.0F / 5040.0F;
    power = power * r + 1.0F / 720.0F;
    power = power * r + 1.0F / 120.0F;
    power = power * r + 1.0F / 24.0F;
    power = power * r + 1.0F / 6.0F;
    power = power * r + 0.5F;
    power = power * r + 1.0F;
    power = power * r + 1.0F;
    const auto exponentBits = (static_cast<std::int32_t>(n) + 127) << 23;
    float scale = 0;
    std::memcpy(&scale, &exponentBits, sizeof scale);
    return power * scale;
}

} // namespace

} // namespace vantro::asr::kernels
