#include "vantro/whisper/WhisperTranscriptionProvider.h"

#include <qcoro/qcorofuture.h>

#include <utility>

namespace vantro {

WhisperTranscriptionProvider::WhisperTranscriptionProvider(WhisperInProcessEngine& engine, const ModelStore& store,
                                                           UserDefaults& defaults)
    : engine_(engine)
    , store_(store)
    , defaults_(defaults)
{
}

void WhisperTranscriptionProvider::prepare(const TranscriptionModel& model)
{
    // A file that cannot be loaded is reported by transcribe(), where somebody waits for the answer.
    std::ignore = engine_.load(store_.modelFile(model));
    engine_.warmUp();
}

QCoro::Task<QString> WhisperTranscriptionProvider::transcribe(TranscriptionRequest request)
{
    co_await engine_.load(store_.modelFile(request.model));
    const QString language = request.language.value_or(
        defaults_.string(QStringLiteral("SelectedLanguage")).value_or(QStringLiteral("auto")));
    WhisperInProcessEngine::Request work;
    work.samples = std::move(request.samples);
    work.language = language;
    work.onProgress = std::move(request.onProgress);
    co_return co_await engine_.transcribe(std::move(work));
}

void WhisperTranscriptionProvider::cancel()
{
    engine_.abortTranscription();
}

void WhisperTranscriptionProvider::dictationEnded()
{
    if (!defaults_.boolean(QStringLiteral("whisperKeepModelInMemory"), false))
        engine_.unload();
}

} // namespace vantro
