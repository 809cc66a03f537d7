#pragma once

#include "platform/AudioEngine.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace vantro::doubles {

/// What a FakeAudioEngine is told to do; shared by all that one factory makes and read at each call.
struct FakeAudioSettings
{
    AudioFormat inputFormat{.sampleRateHz = 16'000, .channelCount = 1};
    std::optional<AudioFormat> deviceFormat;
    /// The error of selectInputDevice() and of start(); none lets them succeed.
    std::optional<QString> selectionError;
    std::optional<QString> startError;
};

/// A microphone that hears what the test says, in the test's own thread.
class FakeAudioEngine final : public AudioEngine
{
    Q_OBJECT
public:
    explicit FakeAudioEngine(const FakeAudioSettings& settings) : settings_(settings) {}

    void selectInputDevice(AudioDeviceID device) override;
    [[nodiscard]] std::optional<AudioFormat> deviceFormat() const override;
    [[nodiscard]] AudioFormat inputFormat() const override { return settings_.inputFormat; }
    void installTap(std::size_t blockFrames, AudioFormat format, Tap tap) override;
    void removeTap() override { tap_ = nullptr; }
    void start() override;
    void stop() override;
    [[nodiscard]] bool isRunning() const override { return isRunning_; }

    /// The same sound on every channel. What does not fill a block is delivered with the next sound or by stop().
    void hear(std::span<const float> samples);
    /// That many frames of one value.
    void hear(std::size_t frames, float value);
    void changeConfiguration() { Q_EMIT configurationChanged(); }

    [[nodiscard]] std::optional<AudioDeviceID> selectedDevice() const { return selectedDevice_; }
    [[nodiscard]] std::size_t blockFrames() const { return blockFrames_; }
    [[nodiscard]] AudioFormat tapFormat() const { return tapFormat_; }

private:
    void deliver(std::span<const float> block);

    const FakeAudioSettings& settings_;
    std::optional<AudioDeviceID> selectedDevice_;
    std::size_t blockFrames_ = 0;
    AudioFormat tapFormat_;
    Tap tap_;
    bool isRunning_ = false;
    std::vector<float> pending_;
};

/// Makes engines and keeps sight of the newest. Outlives them.
class FakeAudioEngines
{
public:
    FakeAudioSettings settings;

    [[nodiscard]] AudioEngineFactory factory();
    /// The newest engine, null when it has been destroyed or none was made.
    [[nodiscard]] FakeAudioEngine* current() const { return current_; }
    [[nodiscard]] int madeCount() const { return madeCount_; }

private:
    FakeAudioEngine* current_ = nullptr;
    int madeCount_ = 0;
};

} // namespace vantro::doubles
