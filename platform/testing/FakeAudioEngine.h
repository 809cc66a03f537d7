#pragma once

#include "platform/AudioEngine.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace vantro::doubles {

/// Controls all FakeAudioEngines of one factory; read on each call.
struct FakeAudioSettings
{
    AudioFormat inputFormat{.sampleRateHz = 16'000, .channelCount = 1};
    std::optional<AudioFormat> deviceFormat;
    /// The errors of selectInputDevice() and start(); nullopt for success.
    std::optional<QString> selectionError;
    std::optional<QString> startError;
};

/// A microphone that is fed by the test, on the test's thread.
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
    void reportStall() override { changeConfiguration(); }

    /// The same samples on every channel. A partial block is delivered with the next samples or by stop().
    void hear(std::span<const float> samples);
    /// @p frames frames of one value.
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

/// Creates engines and tracks the newest. Must outlive them.
class FakeAudioEngines
{
public:
    FakeAudioSettings settings;

    [[nodiscard]] AudioEngineFactory factory();
    /// The newest engine; null if it has been destroyed or there is none.
    [[nodiscard]] FakeAudioEngine* current() const { return current_; }
    [[nodiscard]] int madeCount() const { return madeCount_; }

private:
    FakeAudioEngine* current_ = nullptr;
    int madeCount_ = 0;
};

} // namespace vantro::doubles
