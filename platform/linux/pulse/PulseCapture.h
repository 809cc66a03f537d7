#pragma once
// Private to this folder: includes the sound server's own headers.

#include "platform/AudioEngine.h"
#include "platform/linux/pulse/PulseLoop.h"

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace vantro {

/// One recording stream, cut into blocks of equal length. Made, opened and closed on the main thread; the tap is called
/// on the loop's thread, and by finish() for what is left.
class PulseCapture
{
public:
    enum class Outcome {
        Running,
        /// The server has no such source or does not let us record from it.
        Refused,
        /// The stream is there but its source is switched off, so no sound would come.
        Suspended,
        /// The server did not say anything in time.
        NoAnswer,
    };

    PulseCapture(PulseLoop& loop, std::size_t blockFrames, AudioFormat format, AudioEngine::Tap tap);
    ~PulseCapture();
    PulseCapture(const PulseCapture&) = delete;
    PulseCapture& operator=(const PulseCapture&) = delete;

    /// Records from @p source and from nothing else. @p native: the format is the source's own, so its channels come
    /// as they are.
    Outcome open(const std::string& source, bool native, PulseLoop::Deadline deadline);
    /// Gives the tap what has arrived since the last whole block, then ends the stream. Waits for nobody.
    void finish();
    void removeTap();

    /// When the stream has been lost, moved or suspended since the last call: the number of the listing that shows the
    /// world after it.
    [[nodiscard]] std::optional<std::uint64_t> takeIncident();

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

    // Guarded by the library's lock.
    AudioEngine::Tap tap_;
    pa_stream* stream_ = nullptr;
    std::vector<std::vector<float>> block_;
    std::vector<const float*> channels_;
    std::size_t filled_ = 0;

    mutable std::mutex mutex_;
    std::condition_variable settled_;
    std::optional<Outcome> outcome_;
    std::optional<std::uint64_t> incident_;
};

} // namespace vantro
