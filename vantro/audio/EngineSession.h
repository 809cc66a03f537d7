#pragma once

#include "platform/AudioEngine.h"
#include "vantro/audio/AmplitudeSmoother.h"
#include "vantro/audio/SampleCollector.h"
#include "vantro/audio/TapConverter.h"

#include <QObject>

#include <functional>
#include <memory>

namespace vantro {

/// One running engine with what its tap feeds. Main thread; the tap works on the audio thread, with nothing but the
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

    /// Calls @p changed on the main thread at every configuration change of the engine.
    void observeConfiguration(QObject* context, std::function<void()> changed);
    void stopObserving();

    /// Captures in @p format into @p collector. Throws AudioEngineError.
    void start(AudioFormat format, std::shared_ptr<SampleCollector> collector);
    [[nodiscard]] bool isRunning() const { return engine_ && engine_->isRunning(); }
    /// Ends the capture and the engine; what the converter still holds goes into @p drainInto unless that is null. A
    /// second call does nothing.
    void tearDown(SampleCollector* drainInto);

    /// Whether the next configuration change is the echo of the device selection that this session made; asking for it
    /// uses it up.
    [[nodiscard]] bool takeOwnConfigChange();

private:
    std::unique_ptr<TapConverter> converter_;
    AmplitudeSmoother smoother_;
    std::unique_ptr<AudioEngine> engine_;
    QMetaObject::Connection configurationObserver_;
    bool awaitingOwnConfigChange_;
};

} // namespace vantro
