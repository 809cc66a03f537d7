#include "vantro/audio/MicrophoneMonitor.h"

#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/EngineSession.h"

#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

/// Above an idle sound card's noise, below a whisper.
constexpr float heardLevel = 0.02F;
constexpr auto retryDelay = 1000ms;

} // namespace

MicrophoneMonitor::MicrophoneMonitor(AudioEngineFactory makeEngine, AudioDeviceManager& devices, Clock& clock)
    : makeEngine_(std::move(makeEngine))
    , devices_(devices)
    , clock_(clock)
    , waker_([this] { takeLevel(); })
    , smoother_([this](float level) {
        tapLevel_.store(level);
        waker_.wake();
    })
{
    connect(&devices_, &AudioDeviceManager::availableDevicesChanged, this, [this] {
        if (isWanted_ && !engine_)
            open();
    });
}

MicrophoneMonitor::~MicrophoneMonitor()
{
    close();
}

void MicrophoneMonitor::start()
{
    if (std::exchange(isWanted_, true))
        return;
    hasHeard_ = false;
    open();
}

void MicrophoneMonitor::stop()
{
    isWanted_ = false;
    close();
}

void MicrophoneMonitor::open()
{
    close();
    problem_.clear();
    auto engine = makeEngine_();
    try {
        awaitsOwnChange_ = false;
        if (const auto device = devices_.effectiveDeviceID()) {
            engine->selectInputDevice(*device);
            awaitsOwnChange_ = true;
        }
        connect(engine.get(), &AudioEngine::configurationChanged, this, [this] {
            if (!std::exchange(awaitsOwnChange_, false) && isWanted_)
                open();
        });
        engine->installTap(EngineSession::tapFrames, engine->deviceFormat().value_or(engine->inputFormat()),
                           [this](const AudioTapBuffer& buffer) { smoother_.measure(buffer); });
        engine->start();
        engine_ = std::move(engine);
    } catch (const AudioEngineError& error) {
        problem_ = error.localizedDescription();
        // Nothing signals that a sound server has been started.
        clock_.callAfter(retryDelay, this, [this] {
            if (isWanted_ && !engine_)
                open();
        });
    }
    Q_EMIT changed();
}

void MicrophoneMonitor::close()
{
    if (!engine_)
        return;
    engine_->stop();
    engine_->removeTap();
    // This may be called from the engine's own signal.
    engine_.release()->deleteLater();
    level_ = 0;
}

void MicrophoneMonitor::takeLevel()
{
    level_ = tapLevel_.load();
    hasHeard_ = hasHeard_ || level_ >= heardLevel;
    Q_EMIT changed();
}

} // namespace vantro
