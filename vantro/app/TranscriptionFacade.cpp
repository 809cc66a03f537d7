#include "vantro/app/TranscriptionFacade.h"

#include <utility>

namespace vantro {

TranscriptionEngineError TranscriptionEngineError::misconfiguredFluidModel(const QString& modelName)
{
    return TranscriptionEngineError(QStringLiteral("Model \"%1\" is missing its Fluid configuration.").arg(modelName));
}

TranscriptionFacade::TranscriptionFacade(ModelSelection& selection, TranscriptionProviding& whisper,
                                         TranscriptionProviding& fluid)
    : selection_(selection)
    , whisper_(whisper)
    , fluid_(fluid)
{
}

TranscriptionProviding& TranscriptionFacade::provider(const TranscriptionModel& model)
{
    switch (model.engine) {
    case TranscriptionEngine::whisper:
        return whisper_;
    case TranscriptionEngine::fluid:
        if (!model.fluidModel)
            throw TranscriptionEngineError::misconfiguredFluidModel(model.name);
        return fluid_;
    }
    Q_UNREACHABLE();
}

TranscriptionFacade::EngineUse TranscriptionFacade::prepare()
{
    EngineUse use = use_.lock();
    if (!use) {
        use = EngineUse(this, [this](void*) {
            whisper_.dictationEnded();
            fluid_.dictationEnded();
        });
        use_ = use;
    }
    const TranscriptionModel& model = selection_.selectedModel();
    // A model that cannot be run is reported by transcribe(), where somebody waits for the answer.
    if (model.engine == TranscriptionEngine::whisper || model.fluidModel)
        provider(model).prepare(model);
    return use;
}

QCoro::Task<QString> TranscriptionFacade::transcribe(QString recordingID, std::vector<float> samples, Options options)
{
    const TranscriptionModel model = options.model != nullptr ? *options.model : selection_.selectedModel();
    const bool isWhisper = model.engine == TranscriptionEngine::whisper;
    logger_.info(QStringLiteral("Transcribing with %1 (%2)")
                     .arg(isWhisper ? QStringLiteral("whisper.cpp") : QStringLiteral("Fluid"), model.name));
    TranscriptionRequest request{std::move(recordingID),
                                 std::move(samples),
                                 model,
                                 std::move(options.language),
                                 std::move(options.onProgress),
                                 std::move(options.onTokens),
                                 std::move(options.stop)};
    co_return co_await provider(model).transcribe(std::move(request));
}

void TranscriptionFacade::cancel()
{
    whisper_.cancel();
    fluid_.cancel();
}

} // namespace vantro
