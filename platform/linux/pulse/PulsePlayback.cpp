#include "platform/linux/pulse/PulsePlayback.h"

#include "base/SampleFormat.h"

#include <algorithm>
#include <utility>

namespace vantro {

PulsePlayback::PulsePlayback(PulseLoop& loop, std::vector<float> samples, std::size_t from,
                             std::function<void()> changed)
    : loop_(loop)
    , samples_(std::move(samples))
    , from_(std::min(from, samples_.size()))
    , changed_(std::move(changed))
    , written_(from_)
{
    const PulseLoop::Lock lock(loop_);
    if (!open())
        end(State::Failed);
}

PulsePlayback::~PulsePlayback()
{
    const PulseLoop::Lock lock(loop_);
    if (stream_ == nullptr)
        return;
    pa_stream_set_state_callback(stream_, nullptr, nullptr);
    pa_stream_set_write_callback(stream_, nullptr, nullptr);
    pa_stream_disconnect(stream_);
    pa_stream_unref(stream_);
}

bool PulsePlayback::open()
{
    if (loop_.context() == nullptr || pa_context_get_state(loop_.context()) != PA_CONTEXT_READY)
        return false;
    const pa_sample_spec spec{.format = PA_SAMPLE_FLOAT32NE, .rate = sampleRateHz, .channels = 1};
    stream_ = pa_stream_new(loop_.context(), "Recording", &spec, nullptr);
    if (stream_ == nullptr)
        return false;
    pa_stream_set_state_callback(
        stream_, [](pa_stream*, void* self) { static_cast<PulsePlayback*>(self)->settle(); }, this);
    pa_stream_set_write_callback(
        stream_, [](pa_stream*, std::size_t bytes, void* self) { static_cast<PulsePlayback*>(self)->write(bytes); },
        this);
    const auto flags = static_cast<pa_stream_flags_t>(PA_STREAM_INTERPOLATE_TIMING | PA_STREAM_AUTO_TIMING_UPDATE);
    return pa_stream_connect_playback(stream_, nullptr, nullptr, flags, nullptr, nullptr) == 0;
}

void PulsePlayback::settle()
{
    if (!PA_STREAM_IS_GOOD(pa_stream_get_state(stream_)))
        end(State::Failed);
}

/// Behind the last sample the server tells when it has been heard.
void PulsePlayback::write(std::size_t bytes)
{
    const std::size_t count = std::min(bytes / sizeof(float), samples_.size() - written_);
    if (count > 0)
        pa_stream_write(stream_, samples_.data() + written_, count * sizeof(float), nullptr, 0, PA_SEEK_RELATIVE);
    written_ += count;
    if (written_ < samples_.size())
        return;
    pa_stream_set_write_callback(stream_, nullptr, nullptr);
    const auto drained = [](pa_stream*, int isDone, void* self) {
        static_cast<PulsePlayback*>(self)->end(isDone != 0 ? State::Ended : State::Failed);
    };
    if (pa_operation* draining = pa_stream_drain(stream_, drained, this))
        pa_operation_unref(draining);
    else
        end(State::Failed);
}

void PulsePlayback::end(State state)
{
    if (state_ != State::Playing)
        return;
    state_ = state;
    changed_();
}

PulsePlayback::State PulsePlayback::state() const
{
    const PulseLoop::Lock lock(loop_);
    return state_;
}

std::size_t PulsePlayback::position() const
{
    const PulseLoop::Lock lock(loop_);
    if (state_ == State::Ended)
        return samples_.size();
    pa_usec_t heard = 0;
    if (stream_ == nullptr || pa_stream_get_time(stream_, &heard) < 0)
        return from_;
    return std::min(from_ + static_cast<std::size_t>(heard * sampleRateHz / PA_USEC_PER_SEC), samples_.size());
}

} // namespace vantro
