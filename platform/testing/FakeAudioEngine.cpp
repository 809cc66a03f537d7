#include "platform/testing/FakeAudioEngine.h"

namespace vantro::doubles {

void FakeAudioEngine::selectInputDevice(AudioDeviceID device)
{
    if (settings_.selectionError)
        throw AudioEngineError(*settings_.selectionError);
    selectedDevice_ = device;
}

std::optional<AudioFormat> FakeAudioEngine::deviceFormat() const
{
    return selectedDevice_ ? settings_.deviceFormat : std::nullopt;
}

void FakeAudioEngine::installTap(std::size_t blockFrames, AudioFormat format, Tap tap)
{
    blockFrames_ = blockFrames;
    tapFormat_ = format;
    tap_ = std::move(tap);
}

void FakeAudioEngine::start()
{
    if (settings_.startError)
        throw AudioEngineError(*settings_.startError);
    isRunning_ = true;
}

void FakeAudioEngine::stop()
{
    if (isRunning_)
        deliver(pending_);
    pending_.clear();
    isRunning_ = false;
}

void FakeAudioEngine::hear(std::span<const float> samples)
{
    if (!isRunning_)
        return;
    pending_.insert(pending_.end(), samples.begin(), samples.end());
    std::span<const float> waiting(pending_);
    for (; waiting.size() >= blockFrames_; waiting = waiting.subspan(blockFrames_))
        deliver(waiting.first(blockFrames_));
    pending_ = std::vector<float>(waiting.begin(), waiting.end());
}

void FakeAudioEngine::hear(std::size_t frames, float value)
{
    hear(std::vector<float>(frames, value));
}

void FakeAudioEngine::deliver(std::span<const float> block)
{
    const std::vector<const float*> channels(tapFormat_.channelCount, block.data());
    if (tap_ && !block.empty())
        tap_(AudioTapBuffer(channels, block.size()));
}

AudioEngineFactory FakeAudioEngines::factory()
{
    return [this] {
        auto engine = std::make_unique<FakeAudioEngine>(settings);
        current_ = engine.get();
        ++madeCount_;
        QObject::connect(engine.get(), &QObject::destroyed, [this](const QObject* gone) {
            if (current_ == gone)
                current_ = nullptr;
        });
        return engine;
    };
}

} // namespace vantro::doubles
