#include "vantro/audio/EngineSession.h"

#include <utility>

namespace vantro {

EngineSession::EngineSession(std::unique_ptr<AudioEngine> engine, std::unique_ptr<TapConverter> converter,
                             bool awaitingOwnConfigChange, std::function<void(float)> publishLevel)
    : converter_(std::move(converter))
    , smoother_(std::move(publishLevel))
    , engine_(std::move(engine))
    , awaitingOwnConfigChange_(awaitingOwnConfigChange)
{
}

EngineSession::~EngineSession()
{
    tearDown(nullptr);
}

void EngineSession::observeConfiguration(QObject* context, std::function<void()> changed)
{
    QObject::connect(engine_.get(), &AudioEngine::configurationChanged, context, std::move(changed));
}

void EngineSession::start(AudioFormat format, std::shared_ptr<SampleCollector> collector,
                          std::function<void()> blockArrived)
{
    engine_->installTap(
        tapFrames, format,
        [this, collector = std::move(collector), blockArrived = std::move(blockArrived)](const AudioTapBuffer& buffer) {
            blockArrived();
            smoother_.measure(buffer);
            converter_->convert(buffer, *collector);
        });
    engine_->start();
}

void EngineSession::tearDown(SampleCollector* drainInto)
{
    if (!engine_)
        return;
    engine_->stop();
    engine_->removeTap();
    // The session may outlive the resources that the engine uses.
    engine_.reset();
    if (drainInto != nullptr)
        converter_->drain(*drainInto);
}

bool EngineSession::takeOwnConfigChange()
{
    return std::exchange(awaitingOwnConfigChange_, false);
}

} // namespace vantro
