#pragma once

#include <mutex>
#include <optional>

namespace vantro {

/// Limits progress reports to steps of ten per cent. Any thread.
class ProgressGate
{
public:
    /// The percentage to report for a finite @p fraction of 0..1; nullopt if less than a step since the last report.
    std::optional<int> pass(double fraction);

private:
    std::mutex lock_;
    int lastPercent_ = -10; ///< so that the first progress is reported
};

} // namespace vantro
