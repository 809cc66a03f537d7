#include "vantro/app/TranscriptionFacade.h"

#include <utility>

namespace vantro {

TranscriptionFacade::TranscriptionFacade(ModelSelection& selection, const SpeechEngines& engines)
    : selection_(selection)
    , engines_(engines)
{
}

TranscriptionFacade::EngineUse TranscriptionFacade::hold()
{
    EngineUse use = use_.lock();
    if (!use) {
        use = EngineUse(this, [this](void*) {
            for (SpeechEngine* engine : engines_.all())
                engine->dictationEnded();
        });
        use_ = use;
    }
    return use;
}

TranscriptionFacade::EngineUse TranscriptionFacade::prepare(std::function<void()> failed)
{
    EngineUse use = hold();
    load(selection_.selectedModel(), std::move(failed));
    return use;
}

QCoro::Task<> TranscriptionFacade::load(TranscriptionModel model, std::function<void()> failed)
{
    auto loading = engines_.of(model).prepare(std::move(model));
    const QString reason = co_await loading;
    if (reason.isEmpty())
        co_return;
    logger_.error(QStringLiteral("The model cannot be used: ") + reason);
    if (failed)
        failed();
}

bool TranscriptionFacade::hasModel() const
{
    const TranscriptionModel& model = selection_.selectedModel();
    const ModelStatus::State state = engines_.of(model).status(model).state;
    return state == ModelStatus::State::unchecked || state == ModelStatus::State::ready;
}

bool TranscriptionFacade::hear(const QString& recordingID, std::span<const float> samples, bool mayHaveEnded,
                               std::function<void(const QString&)> onWords)
{
    const TranscriptionModel& model = selection_.selectedModel();
    return engines_.of(model).hear({recordingID, model, samples, mayHaveEnded, std::move(onWords)});
}

void TranscriptionFacade::hurry()
{
    engines_.of(selection_.selectedModel()).hurry();
}

std::size_t TranscriptionFacade::aheadLimit() const
{
    return engines_.of(selection_.selectedModel()).aheadLimit();
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
                                 std::move(options.stop),
                                 options.isAhead,
                                 std::move(options.terms),
                                 options.termWeight,
                                 std::move(options.boostingModel),
                                 std::move(options.onVocabulary),
                                 std::move(options.onLanguage)};
    const std::shared_ptr<void> turn = takeTurn_ ? takeTurn_() : nullptr;
    co_return co_await engine.transcribe(std::move(request));
}

} // namespace vantro
