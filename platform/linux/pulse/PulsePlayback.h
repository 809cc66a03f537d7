#pragma once
// Private to this folder: includes libpulse headers.

#include "platform/linux/pulse/PulseLoop.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace vantro {

/// One playback stream on the default output. Made and destroyed on the main thread; the samples are handed over on the
/// loop's thread.
class PulsePlayback
{
public:
    enum class State { Playing, Ended, Failed };

    /// @p samples: 16 kHz mono, of which the first @p from are left out. @p changed is called on the loop's thread.
    PulsePlayback(PulseLoop& loop, std::vector<float> samples, std::size_t from, std::function<void()> changed);
    ~PulsePlayback();
    PulsePlayback(const PulsePlayback&) = delete;
    PulsePlayback& operator=(const PulsePlayback&) = delete;

    [[nodiscard]] State state() const;
    /// The sample that is heard now.
    [[nodiscard]] std::size_t position() const;

private:
    bool open();
    void settle();
    void write(std::size_t bytes);
    void end(State state);

    PulseLoop& loop_;
    const std::vector<float> samples_;
    const std::size_t from_;
    const std::function<void()> changed_;

    // Guarded by PulseLoop::Lock.
    pa_stream* stream_ = nullptr;
    std::size_t written_;
    State state_ = State::Playing;
};

} // namespace vantro
