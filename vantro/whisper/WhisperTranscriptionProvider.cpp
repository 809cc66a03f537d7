#include "vantro/whisper/WhisperTranscriptionProvider.h"

#include "base/Settings.h"
#include "vantro/text/TextReplacer.h"

#include <qcoro/qcorofuture.h>

#include <utility>

namespace vantro {

namespace {

/// What the library answers when it was told to stop.
constexpr std::int32_t codeOfAbort = -6;

} // namespace

WhisperTranscriptionProvider::WhisperTranscriptionProvider(WhisperInProcessEngine& engine, const ModelStore& store,
                                                           UserDefaults& defaults, const VocabularySettings& vocabulary)
    : engine_(engine)
    , store_(store)
    , defaults_(defaults)
    , vocabulary_(vocabulary)
{
}

void WhisperTranscriptionProvider::prepare(const TranscriptionModel& model)
{
    loadAndWarmUp(model);
}

QCoro::Task<> WhisperTranscriptionProvider::loadAndWarmUp(TranscriptionModel model)
{
    const std::uint64_t ended = endedCount_;
    try {
        co_await check(model);
        if (ended != endedCount_)
            co_return;
        const QFuture<void> loaded = engine_.load(store_.modelFile(model));
        co_await loaded;
    } catch (const std::exception&) {
        // Reported by transcribe(), where somebody waits for the answer.
        co_return;
    }
    if (ended == endedCount_)
        engine_.warmUp();
}

// A file that nobody has verified may be anything: it is read to its end before the engine sees it.
QCoro::Task<> WhisperTranscriptionProvider::check(TranscriptionModel model)
{
    if (store_.isVerified(model))
        co_return;
    const QFuture<bool> answer = checks_.run([this, model] { return store_.isReady(model); });
    if (!co_await answer)
        throw WhisperInProcessError::modelLoadFailed(store_.modelFile(model));
}

QCoro::Task<QString> WhisperTranscriptionProvider::transcribe(TranscriptionRequest request)
{
    const std::uint64_t cancelled = cancelCount_;
    co_await check(request.model);
    const QFuture<void> loaded = engine_.load(store_.modelFile(request.model));
    co_await loaded;
    if (cancelled != cancelCount_)
        throw WhisperInProcessError::transcriptionFailed(codeOfAbort);
    const QString language = request.language.value_or(defaults_.get(setting::selectedLanguage));
    WhisperInProcessEngine::Request work;
    work.samples = std::move(request.samples);
    work.language = language;
    work.prompt = vocabulary_.customVocabulary().join(QStringLiteral(", "));
    work.onProgress = std::move(request.onProgress);
    const QFuture<QString> transcribed = engine_.transcribe(std::move(work));
    const QString text = co_await transcribed;
    co_return TextReplacer::applyReplacements(text.trimmed(), vocabulary_.textReplacements());
}

void WhisperTranscriptionProvider::cancel()
{
    ++cancelCount_;
    engine_.abortTranscription();
}

void WhisperTranscriptionProvider::dictationEnded()
{
    ++endedCount_;
    if (!defaults_.get(setting::whisperKeepModelInMemory))
        engine_.unload();
}

} // namespace vantro
