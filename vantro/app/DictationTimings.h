#pragma once

#include "base/Clock.h"

#include <QJsonObject>

#include <optional>

namespace vantro {

/// When each step of a dictation happened, on the monotonic clock. Steps that did not happen are absent.
struct DictationTimings
{
    std::optional<Clock::Instant> shortcut;
    std::optional<Clock::Instant> firstSample;
    std::optional<Clock::Instant> stopped;
    std::optional<Clock::Instant> textReady;
    std::optional<Clock::Instant> pasted;
    std::chrono::microseconds engine{0};

    /// The instants in microseconds of the monotonic clock, without the absent ones, and the duration "engine_us".
    [[nodiscard]] QJsonObject toJson() const;
};

} // namespace vantro
