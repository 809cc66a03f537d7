#pragma once
// Private to this folder: includes libpulse headers.

#include "platform/AudioEngine.h"
#include "platform/linux/pulse/PulseLoop.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace vantro {

/// One recording stream, split into blocks of equal length. Created, opened and closed on the main thread; the tap is
/// called on the loop's thread, and by finish() for the rest.
class PulseCapture
{
public:
    enum class Outcome {
        Running,
        /// The server has no such source or refuses access.
        Refused,
        /// The stream exists, but its source is switched off and delivers nothing.
        Suspended,
        /// The server did not answer in time.
        NoAnswer,
    };

    PulseCapture(PulseLoop& loop, std::size_t blockFrames, AudioFormat format, AudioEngine::Tap tap);
    ~PulseCapture();
    PulseCapture(const PulseCapture&) = delete;
    PulseCapture& operator=(const PulseCapture&) = delete;

    /// Records from exactly @p source. @p native: the format is the source's own, so channels are not remapped.
    Outcome open(const std::string& source, bool native, PulseLoop::Deadline deadline);
    /// Delivers the last partial block to the tap, then ends the stream. Does not block.
    void finish();
    void removeTap();

    /// If the stream was lost, moved or suspended since the last call: the number of the listing that shows the state
    /// after that.
    [[nodiscard]] std::optional<std::uint64_t> takeIncident();
    /// Of all streams of this object. Any thread.
    [[nodiscard]] std::uint64_t deliveredBlocks() const { return deliveredBlocks_.load(std::memory_order_relaxed); }

private:
    bool connectStream(const std::string& source, bool native);
    void close();
    template <void (PulseCapture::*method)()>
    static void call(pa_stream* stream, void* self);
    void settle();
    void noteIncident();
    void read();
    void append(const float* interleaved, std::size_t frames);
    void deliver();

    PulseLoop& loop_;
    const AudioFormat format_;
    const std::size_t blockFrames_;

    // Guarded by PulseLoop::Lock.
    AudioEngine::Tap tap_;
    pa_stream* stream_ = nullptr;
    std::vector<std::vector<float>> block_;
    std::vector<const float*> channels_;
    std::size_t filled_ = 0;

    std::atomic<std::uint64_t> deliveredBlocks_ = 0;
    mutable std::mutex mutex_;
    std::condition_variable settled_;
    std::optional<Outcome> outcome_;
    std::optional<std::uint64_t> incident_;
};

} // namespace vantro
