#include "vantro/whisper/WhisperTranscriptionProvider.h"

#include "base/Settings.h"
#include "base/Stop.h"
#include "vantro/models/ModelHost.h"
#include "vantro/text/TextReplacer.h"

#include <QFileInfo>
#include <QUrl>

#include <memory>
#include <utility>

namespace vantro {

namespace {

/// In letters. The time for a word grows with the square of its length.
constexpr qsizetype longestPromptedWord = 200;

void requireWanted(const std::stop_token& stop)
{
    if (stop.stop_requested())
        throw WhisperInProcessError::stopped();
}

} // namespace

WhisperTranscriptionProvider::WhisperTranscriptionProvider(WhisperInProcessEngine& engine, WhisperModelFiles files,
                                                           FileDownloader& downloader, UserDefaults& defaults,
                                                           const VocabularySettings& vocabulary)
    : engine_(engine)
    , files_(std::move(files))
    , downloader_(downloader)
    , defaults_(defaults)
    , vocabulary_(vocabulary)
{
}

QFuture<ModelCheck> WhisperTranscriptionProvider::check(const TranscriptionModel& model, Trust trust)
{
    return checks_.run([this, model, trust] { return files_.check(model, trust); });
}

QFuture<void> WhisperTranscriptionProvider::startDownload(const TranscriptionModel& model,
                                                          FileDownloader::OnProgress onProgress, std::stop_token stop)
{
    TransferRequest request;
    request.url = ModelHost::urlOf(model);
    request.destination = files_.ownFile(model);
    request.sha1 = model.hash;
    request.isThere = [files = files_, model] {
        return files.isReady(model);
    };
    request.onStored = [files = files_, model] {
        files.markIfRight(model);
    };
    return downloader_.download(std::move(request), std::move(onProgress), std::move(stop));
}

std::optional<TranscriptionModel> WhisperTranscriptionProvider::describe(const QString& file) const
{
    const QFileInfo info(file);
    TranscriptionModel model;
    model.name = info.fileName();
    model.url = QUrl::fromLocalFile(info.absoluteFilePath()).toString();
    return model;
}

QCoro::Task<QString> WhisperTranscriptionProvider::prepare(TranscriptionModel model)
{
    const std::stop_token stop = preparations_.get_token();
    try {
        co_await load(std::move(model), stop);
    } catch (const std::exception& error) {
        co_return stop.stop_requested() ? QString() : localizedDescription(error);
    }
    engine_.warmUp();
    co_return QString();
}

QCoro::Task<> WhisperTranscriptionProvider::load(TranscriptionModel model, std::stop_token stop)
{
    // Verify the whole file before the engine parses it.
    if (files_.status(model).state != ModelStatus::State::ready) {
        const QFuture<ModelCheck> checked = check(model, Trust::markers);
        co_await finishedOrStopped(checked, stop);
        requireWanted(stop);
        if (!checked.result().isReady)
            throw WhisperInProcessError::modelLoadFailed(files_.find(model));
    }
    const QFuture<void> loaded = engine_.load(files_.find(model));
    co_await finishedOrStopped(loaded, stop);
    requireWanted(stop);
    co_await loaded;
}

QCoro::Task<QString> WhisperTranscriptionProvider::transcribe(TranscriptionRequest request)
{
    co_await load(request.model, request.stop);
    WhisperInProcessEngine::Request work;
    work.samples = std::move(request.samples);
    work.language = request.language.value_or(defaults_.get(setting::selectedLanguage));
    VocabularyReport report{VocabularyReport::Way::prompt};
    QStringList words = request.terms.value_or(vocabulary_.customVocabulary());
    words.removeIf([&report](const QString& word) {
        if (word.size() > longestPromptedWord)
            report.notLookedFor << word;
        return word.size() > longestPromptedWord;
    });
    work.prompt = words.join(QStringLiteral(", "));
    if (request.onVocabulary && !(work.prompt.isEmpty() && report.notLookedFor.isEmpty()))
        request.onVocabulary(report);
    work.onProgress = std::move(request.onProgress);
    work.stop = request.stop;
    work.isAhead = request.isAhead;
    const auto segments = std::make_shared<std::vector<TranscribedToken>>();
    if (request.onTokens)
        work.segments = segments;
    const auto spokenLanguage = std::make_shared<QString>();
    work.spokenLanguage = spokenLanguage;
    const QFuture<QString> transcribed = engine_.transcribe(std::move(work));
    const QString text = co_await transcribed;
    if (request.onLanguage && !spokenLanguage->isEmpty())
        request.onLanguage(*spokenLanguage);
    if (request.onTokens)
        request.onTokens(*segments);
    co_return TextReplacer::applyReplacements(text.trimmed(), vocabulary_.textReplacements());
}

void WhisperTranscriptionProvider::dictationEnded()
{
    std::exchange(preparations_, std::stop_source()).request_stop();
    if (!defaults_.get(setting::whisperKeepModelInMemory))
        engine_.unload();
}

} // namespace vantro
