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
    loadAndWarmUp(model);
}

QCoro::Task<> WhisperTranscriptionProvider::loadAndWarmUp(TranscriptionModel model)
{
    try {
        co_await load(model);
    } catch (const std::exception&) {
        // Reported by transcribe(), where somebody waits for the answer.
        co_return;
    }
    engine_.warmUp();
}

QCoro::Task<> WhisperTranscriptionProvider::load(TranscriptionModel model)
{
    // A file that nobody has verified may be anything: it is read to its end before the engine sees it.
    if (!store_.isVerified(model)) {
        const QFuture<bool> answer = checks_.run([this, model] { return store_.isReady(model); });
        if (!co_await answer)
            throw WhisperInProcessError::modelLoadFailed(store_.modelFile(model));
    }
    const QFuture<void> loaded = engine_.load(store_.modelFile(model));
    co_await loaded;
}

QCoro::Task<QString> WhisperTranscriptionProvider::transcribe(TranscriptionRequest request)
{
    co_await load(request.model);
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
