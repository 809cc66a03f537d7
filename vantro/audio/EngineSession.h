#pragma once

#include "platform/AudioEngine.h"
#include "vantro/audio/AmplitudeSmoother.h"
#include "vantro/audio/SampleCollector.h"
#include "vantro/audio/TapConverter.h"

#include <QObject>

#include <functional>
#include <memory>

namespace vantro {

/// One running engine and the objects fed by its tap. Main thread; the tap runs on the audio thread and uses only the
/// session's converter and smoother and the collector.
class EngineSession
{
public:
    static constexpr std::size_t tapFrames = 1024;

    /// @p publishLevel is called on the audio thread.
    EngineSession(std::unique_ptr<AudioEngine> engine, std::unique_ptr<TapConverter> converter,
                  bool awaitingOwnConfigChange, std::function<void(float)> publishLevel);
    ~EngineSession();
    EngineSession(const EngineSession&) = delete;
    EngineSession& operator=(const EngineSession&) = delete;

    /// Calls @p changed on the main thread whenever the engine's configuration changes, until tearDown().
    void observeConfiguration(QObject* context, std::function<void()> changed);

    /// Captures in @p format into @p collector. Calls @p blockArrived on the audio thread. Throws AudioEngineError.
    void start(AudioFormat format, std::shared_ptr<SampleCollector> collector, std::function<void()> blockArrived);
    [[nodiscard]] bool isRunning() const { return engine_ && engine_->isRunning(); }
    /// See AudioEngine.
    void reportStall() { engine_->reportStall(); }
    /// Stops capture and engine and drains the converter into @p drainInto unless that is null. Idempotent.
    void tearDown(SampleCollector* drainInto);

    /// Returns once whether the next configuration change results from this session's own device selection, then
    /// resets.
    [[nodiscard]] bool takeOwnConfigChange();

private:
    std::unique_ptr<TapConverter> converter_;
    AmplitudeSmoother smoother_;
    std::unique_ptr<AudioEngine> engine_;
    bool awaitingOwnConfigChange_;
};

} // namespace vantro
