#include "vantro/app/TranscriptionFacade.h"

#include <utility>

namespace vantro {

TranscriptionFacade::TranscriptionFacade(ModelSelection& selection, const SpeechEngines& engines)
    : selection_(selection)
    , engines_(engines)
{
}

TranscriptionFacade::EngineUse TranscriptionFacade::prepare()
{
    EngineUse use = use_.lock();
    if (!use) {
        use = EngineUse(this, [this](void*) {
            for (SpeechEngine* engine : engines_.all())
                engine->dictationEnded();
        });
        use_ = use;
    }
    const TranscriptionModel& model = selection_.selectedModel();
    engines_.of(model).prepare(model);
    return use;
}

QCoro::Task<QString> TranscriptionFacade::transcribe(QString recordingID, std::vector<float> samples, Options options)
{
    const TranscriptionModel model = options.model != nullptr ? *options.model : selection_.selectedModel();
    SpeechEngine& engine = engines_.of(model);
    logger_.info(QStringLiteral("Transcribing with %1 (%2)").arg(engine.label(), model.name));
    TranscriptionRequest request{std::move(recordingID),
                                 std::move(samples),
                                 model,
                                 std::move(options.language),
                                 std::move(options.onProgress),
                                 std::move(options.onTokens),
                                 std::move(options.stop)};
    co_return co_await engine.transcribe(std::move(request));
}

} // namespace vantro
