#include "platform/linux/pulse/PulseCapture.h"

#include <algorithm>
#include <chrono>
#include <span>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

// Audio buffered by the server before sending: short enough for a prompt first block, long enough not to wake the
// machine for every few samples.
constexpr std::chrono::milliseconds fragment{5};

// An idle source resumes with the stream; one that was switched off stays suspended.
constexpr auto resumePatience = 100ms;

} // namespace

PulseCapture::PulseCapture(PulseLoop& loop, std::size_t blockFrames, AudioFormat format, AudioEngine::Tap tap)
    : loop_(loop)
    , format_(format)
    , blockFrames_(blockFrames)
    , tap_(std::move(tap))
    , block_(format.channelCount, std::vector<float>(blockFrames))
{
    for (const auto& channel : block_)
        channels_.push_back(channel.data());
}

PulseCapture::~PulseCapture()
{
    const PulseLoop::Lock lock(loop_);
    close();
}

PulseCapture::Outcome PulseCapture::open(const std::string& source, bool native, PulseLoop::Deadline deadline)
{
    {
        const PulseLoop::Lock lock(loop_);
        close();
        if (loop_.context() == nullptr || pa_context_get_state(loop_.context()) != PA_CONTEXT_READY)
            return Outcome::NoAnswer;
        if (!connectStream(source, native))
            return Outcome::Refused;
    }
    std::unique_lock lock(mutex_);
    settled_.wait_until(lock, deadline, [this] { return outcome_.has_value(); });
    if (outcome_ == Outcome::Suspended) {
        const auto wakesUp = std::min(deadline, std::chrono::steady_clock::now() + resumePatience);
        settled_.wait_until(lock, wakesUp, [this] { return outcome_ != Outcome::Suspended; });
    }
    return outcome_.value_or(Outcome::NoAnswer);
}

bool PulseCapture::connectStream(const std::string& source, bool native)
{
    const pa_sample_spec spec{.format = PA_SAMPLE_FLOAT32NE,
                              .rate = static_cast<std::uint32_t>(format_.sampleRateHz),
                              .channels = static_cast<std::uint8_t>(format_.channelCount)};
    pa_channel_map map;
    if (pa_sample_spec_valid(&spec) == 0 ||
        pa_channel_map_init_extend(&map, spec.channels, PA_CHANNEL_MAP_DEFAULT) == nullptr)
        return false;
    stream_ = pa_stream_new(loop_.context(), "Dictation", &spec, &map);
    if (stream_ == nullptr)
        return false;
    pa_stream_set_state_callback(stream_, call<&PulseCapture::settle>, this);
    pa_stream_set_suspended_callback(stream_, call<&PulseCapture::settle>, this);
    pa_stream_set_moved_callback(stream_, call<&PulseCapture::noteIncident>, this);
    pa_stream_set_read_callback(
        stream_, [](pa_stream*, std::size_t, void* self) { static_cast<PulseCapture*>(self)->read(); }, this);

    constexpr auto serverDecides = static_cast<std::uint32_t>(-1);
    const auto fragmentBytes = pa_usec_to_bytes(std::chrono::microseconds(fragment).count(), &spec);
    const pa_buffer_attr attributes{.maxlength = serverDecides,
                                    .tlength = serverDecides,
                                    .prebuf = serverDecides,
                                    .minreq = serverDecides,
                                    .fragsize = static_cast<std::uint32_t>(fragmentBytes)};
    const auto flags = static_cast<pa_stream_flags_t>(PA_STREAM_ADJUST_LATENCY | PA_STREAM_DONT_MOVE |
                                                      (native ? PA_STREAM_NO_REMAP_CHANNELS : 0));
    return pa_stream_connect_record(stream_, source.c_str(), &attributes, flags) == 0;
}

template <void (PulseCapture::*method)()>
void PulseCapture::call(pa_stream* /*stream*/, void* self)
{
    (static_cast<PulseCapture*>(self)->*method)();
}

void PulseCapture::settle()
{
    std::optional<Outcome> now;
    const pa_stream_state_t state = pa_stream_get_state(stream_);
    if (state == PA_STREAM_READY)
        now = pa_stream_is_suspended(stream_) > 0 ? Outcome::Suspended : Outcome::Running;
    else if (!PA_STREAM_IS_GOOD(state))
        now = PA_CONTEXT_IS_GOOD(pa_context_get_state(loop_.context())) ? Outcome::Refused : Outcome::NoAnswer;
    if (!now)
        return;
    {
        const std::lock_guard lock(mutex_);
        if (outcome_ == Outcome::Running && now != Outcome::Running)
            incident_ = loop_.requestListing();
        outcome_ = now;
    }
    settled_.notify_all();
    loop_.wake();
}

void PulseCapture::noteIncident()
{
    {
        const std::lock_guard lock(mutex_);
        incident_ = loop_.requestListing();
    }
    loop_.wake();
}

std::optional<std::uint64_t> PulseCapture::takeIncident()
{
    const std::lock_guard lock(mutex_);
    return std::exchange(incident_, std::nullopt);
}

void PulseCapture::read()
{
    while (pa_stream_get_state(stream_) == PA_STREAM_READY && pa_stream_readable_size(stream_) > 0) {
        const void* data = nullptr;
        std::size_t bytes = 0;
        if (pa_stream_peek(stream_, &data, &bytes) < 0 || bytes == 0)
            return;
        // Data is null for a hole in the stream; fill it with silence to keep the timing.
        append(static_cast<const float*>(data), bytes / (sizeof(float) * block_.size()));
        pa_stream_drop(stream_);
    }
}

void PulseCapture::append(const float* interleaved, std::size_t frames)
{
    const std::size_t channelCount = block_.size();
    while (frames > 0) {
        const std::size_t count = std::min(frames, blockFrames_ - filled_);
        for (std::size_t c = 0; c < channelCount; ++c) {
            float* const target = block_[c].data() + filled_;
            for (std::size_t i = 0; i < count; ++i)
                target[i] = interleaved != nullptr ? interleaved[i * channelCount + c] : 0.0F;
        }
        if (interleaved != nullptr)
            interleaved += count * channelCount;
        frames -= count;
        filled_ += count;
        if (filled_ == blockFrames_)
            deliver();
    }
}

void PulseCapture::deliver()
{
    if (tap_ && filled_ > 0)
        tap_(AudioTapBuffer(channels_, filled_));
    deliveredBlocks_.fetch_add(1, std::memory_order_relaxed);
    filled_ = 0;
}

void PulseCapture::finish()
{
    const PulseLoop::Lock lock(loop_);
    if (stream_ == nullptr)
        return;
    read();
    deliver();
    close();
}

void PulseCapture::removeTap()
{
    const PulseLoop::Lock lock(loop_);
    tap_ = nullptr;
}

void PulseCapture::close()
{
    if (stream_ == nullptr)
        return;
    pa_stream_set_state_callback(stream_, nullptr, nullptr);
    pa_stream_set_suspended_callback(stream_, nullptr, nullptr);
    pa_stream_set_moved_callback(stream_, nullptr, nullptr);
    pa_stream_set_read_callback(stream_, nullptr, nullptr);
    pa_stream_disconnect(stream_);
    pa_stream_unref(stream_);
    stream_ = nullptr;
    filled_ = 0;
    const std::lock_guard lock(mutex_);
    outcome_.reset();
    incident_.reset();
}

} // namespace vantro
