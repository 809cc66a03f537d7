#pragma once

#include <mutex>
#include <optional>

namespace vantro {

/// Lets a load's progress through in steps of ten per cent. Any thread.
class ProgressGate
{
public:
    /// The percent to report for a @p fraction of 0..1, which is finite; nothing when the last report was close.
    std::optional<int> pass(double fraction);

private:
    std::mutex lock_;
    int lastPercent_ = -10; ///< so that the very first progress is reported
};

} // namespace vantro
