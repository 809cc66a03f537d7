#pragma once

#include "base/Clock.h"

#include <QJsonObject>

#include <optional>

namespace vantro {

/// When the steps of the latest dictation happened, on the monotonic clock. What did not happen is absent.
struct DictationTimings
{
    std::optional<Clock::Instant> shortcut;
    std::optional<Clock::Instant> firstSample;
    std::optional<Clock::Instant> stopped;
    std::optional<Clock::Instant> textReady;
    std::optional<Clock::Instant> pasted;
    std::chrono::microseconds engine{0};

    /// Instants in microseconds of the monotonic clock, absent ones left out, and "engine_us".
    [[nodiscard]] QJsonObject toJson() const;
};

} // namespace vantro
