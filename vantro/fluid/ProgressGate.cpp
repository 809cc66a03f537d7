#include "vantro/fluid/ProgressGate.h"

#include <cassert>
#include <cmath>

namespace vantro {

std::optional<int> ProgressGate::pass(double fraction)
{
    assert(std::isfinite(fraction));
    constexpr int stepPercent = 10;
    const int percent = static_cast<int>(fraction * 100);
    const std::lock_guard guard(lock_);
    if (percent - lastPercent_ < stepPercent)
        return std::nullopt;
    lastPercent_ = percent;
    return percent;
}

} // namespace vantro
