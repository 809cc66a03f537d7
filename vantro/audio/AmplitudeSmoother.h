#pragma once

#include "platform/AudioEngine.h"

#include <chrono>
#include <functional>
#include <mutex>

namespace vantro {

/// Measures the input level for the waveform, 0..1, on raw microphone blocks: their RMS times a fixed gain. Published
/// at most thirty times a second, but at once when it changes by 0.01. Audio thread; has its own mutex.
class AmplitudeSmoother
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    using Now = std::function<TimePoint()>;

    static constexpr std::chrono::duration<double> publishInterval{1.0 / 30.0};
    static constexpr float publishDelta = 0.01F;

    /// @p onPublish is called on the audio thread, outside the lock.
    explicit AmplitudeSmoother(std::function<void(float)> onPublish, Now now = std::chrono::steady_clock::now);

    void measure(const AudioTapBuffer& buffer);

private:
    std::function<void(float)> onPublish_;
    Now now_;
    std::mutex lock_;
    TimePoint lastPublished_ = TimePoint{};
    float lastValue_ = -1.0F;
};

} // namespace vantro
