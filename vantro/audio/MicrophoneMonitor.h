#pragma once

#include "base/Clock.h"
#include "base/ThreadWaker.h"
#include "platform/AudioEngine.h"
#include "vantro/audio/AmplitudeSmoother.h"

#include <QObject>

#include <atomic>
#include <memory>
#include <optional>

namespace vantro {

class AudioDeviceManager;

/// Measures the effective microphone's level without keeping any audio. Follows device changes while running. Main
/// thread.
class MicrophoneMonitor final : public QObject
{
    Q_OBJECT
public:
    MicrophoneMonitor(AudioEngineFactory makeEngine, AudioDeviceManager& devices, Clock& clock);
    ~MicrophoneMonitor() override;

    void start();
    void stop();
    [[nodiscard]] bool isRunning() const { return engine_ != nullptr; }

    /// 0..1
    [[nodiscard]] float level() const { return level_; }
    /// Whether anything but silence has been heard since start().
    [[nodiscard]] bool hasHeard() const { return hasHeard_; }
    /// Why there is no sound, for the user; empty if there is no problem.
    [[nodiscard]] QString problem() const { return problem_; }

Q_SIGNALS:
    void changed();

private:
    void open();
    void close();
    void takeLevel();

    AudioEngineFactory makeEngine_;
    AudioDeviceManager& devices_;
    Clock& clock_;
    std::unique_ptr<AudioEngine> engine_;
    bool isWanted_ = false;
    bool awaitsOwnChange_ = false;
    float level_ = 0;
    bool hasHeard_ = false;
    QString problem_;
    std::atomic<float> tapLevel_{0};
    ThreadWaker waker_;
    AmplitudeSmoother smoother_;
};

} // namespace vantro
