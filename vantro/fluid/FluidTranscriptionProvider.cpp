#include "vantro/fluid/FluidTranscriptionProvider.h"

#include "base/Settings.h"
#include "vantro/fluid/ProgressGate.h"
#include "vantro/models/ModelHost.h"
#include "vantro/text/TextReplacer.h"

#include <memory>
#include <utility>

namespace vantro {

namespace {

std::vector<TranscribedToken> tokensOf(const asr::ASRResult& result)
{
    std::vector<TranscribedToken> tokens;
    if (result.tokenTimings) {
        for (const asr::TokenTiming& timing : *result.tokenTimings)
            tokens.push_back(
                {QString::fromStdString(timing.token), timing.startTime, timing.endTime, timing.confidence});
    }
    return tokens;
}

VocabularyReport reportOf(const FluidTranscript& transcript)
{
    VocabularyReport report;
    if (transcript.hasVocabulary)
        report = {VocabularyReport::Way::boosting, transcript.skipped, {}, transcript.notLookedFor};
    for (const asr::ConsideredTerm& place : transcript.considered)
        report.places.push_back({QString::fromStdString(place.term), QString::fromStdString(place.heard), place.start,
                                 place.end, place.similarity, place.scoreBefore, place.scoreAfter, place.bias,
                                 place.isReplaced});
    return report;
}

} // namespace

TranscriptionEngineError TranscriptionEngineError::misconfiguredFluidModel(const QString& modelName)
{
    return TranscriptionEngineError(QStringLiteral("Model \"%1\" is missing its Fluid configuration.").arg(modelName));
}

FluidTranscriptionProvider::FluidTranscriptionProvider(FluidAsrEngine& engine, FluidModelFiles files,
                                                       FileDownloader& downloader, UserDefaults& defaults,
                                                       const VocabularySettings& vocabulary,
                                                       const TranscriptionModel& boostingModel)
    : engine_(engine)
    , files_(std::move(files))
    , downloader_(downloader)
    , defaults_(defaults)
    , vocabulary_(vocabulary)
    , boostingModel_(boostingModel)
{
}

FluidModelSource FluidTranscriptionProvider::source(const TranscriptionModel& model) const
{
    if (!model.fluidModel)
        throw TranscriptionEngineError::misconfiguredFluidModel(model.name);
    const FluidModel& fluid = *model.fluidModel;
    return {fluid.repository, fluid.isMultilingual ? asr::AsrModelVersion::v3 : asr::AsrModelVersion::v2,
            files_.find(model)};
}

QCoro::Task<QString> FluidTranscriptionProvider::prepare(TranscriptionModel model)
{
    if (!model.fluidModel)
        co_return TranscriptionEngineError::misconfiguredFluidModel(model.name).localizedDescription();
    QString problem = co_await engine_.prepare(source(model));
    if (problem.isEmpty())
        engine_.prepareVocabulary(vocabulary());
    co_return problem;
}

QCoro::Task<QString> FluidTranscriptionProvider::transcribe(TranscriptionRequest request)
{
    FluidAsrEngine::Request work;
    work.label = request.recordingID;
    work.model = source(request.model);
    work.language = languageHint(request.model, request.language);
    work.samples = std::move(request.samples);
    work.onProgress = std::move(request.onProgress);
    work.stop = request.stop;
    work.vocabulary = vocabulary(request.terms, request.termWeight, request.boostingModel);
    const FileVersion boostingFile = FileVersion::of(work.vocabulary.modelFile);
    const FluidTranscript transcript = co_await engine_.transcribe(std::move(work));
    if (request.onTokens)
        request.onTokens(tokensOf(transcript.result));
    boostingProblem_ = transcript.skipped;
    boostingFile_ = boostingFile;
    if (request.onVocabulary)
        request.onVocabulary(reportOf(transcript));
    co_return TextReplacer::applyReplacements(QString::fromStdString(transcript.result.text).trimmed(),
                                              vocabulary_.textReplacements());
}

QString FluidTranscriptionProvider::boostingProblem() const
{
    return boostingFile_ == FileVersion::of(files_.find(boostingModel_)) ? boostingProblem_ : QString();
}

bool FluidTranscriptionProvider::hear(const UnfinishedRecording& recording)
{
    if (!recording.model.fluidModel)
        return false;
    const FluidModelSource model = source(recording.model);
    return engine_.hear({recording.id, model, languageHint(recording.model, {}), recording.samples,
                         recording.mayHaveEnded,
                         [this, onWords = recording.onWords](const QString& text) {
                             onWords(TextReplacer::applyReplacements(text.trimmed(), vocabulary_.textReplacements()));
                         },
                         [this] {
                             return vocabulary();
                         }});
}

FluidVocabulary FluidTranscriptionProvider::vocabulary(const std::optional<QStringList>& terms, double weight,
                                                       const QString& modelFile) const
{
    FluidVocabulary vocabulary;
    for (const QString& word : terms.value_or(vocabulary_.customVocabulary())) {
        const VocabularyDetails details = vocabulary_.details(word);
        vocabulary.terms.push_back(vocabularyTerm(word, details.soundsLike, details.weight * weight));
    }
    vocabulary.modelFile = modelFile.isEmpty() ? files_.find(boostingModel_) : modelFile;
    return vocabulary;
}

/// The multilingual model transcribes one language at a time and does not detect it.
std::optional<asr::Language> FluidTranscriptionProvider::languageHint(const TranscriptionModel& model,
                                                                      const std::optional<QString>& language) const
{
    if (!model.fluidModel.value().isMultilingual)
        return std::nullopt;
    const QString code = language.value_or(defaults_.get(setting::selectedLanguage));
    return asr::languageFromCode(code.toStdString()).value_or(asr::Language::english);
}

QFuture<ModelCheck> FluidTranscriptionProvider::check(const TranscriptionModel& model, Trust /*trust*/)
{
    return checks_.run([this, model] { return files_.check(model); });
}

QFuture<void> FluidTranscriptionProvider::startDownload(const TranscriptionModel& model,
                                                        FileDownloader::OnProgress onProgress, std::stop_token stop)
{
    TransferRequest request;
    request.url = ModelHost::urlOf(model);
    request.destination = files_.ownFile(model);
    // No digest is published; the file name contains version and precision, so it identifies the content of a part.
    request.sha1 = model.fileName();
    request.isThere = [files = files_, model] {
        return files.check(model).isReady;
    };
    const auto report = [this, id = source(model).id, gate = std::make_shared<ProgressGate>(),
                         onProgress = std::move(onProgress)](const DownloadProgress& progress) {
        if (const auto percent = gate->pass(progress.fraction()))
            logger_.info(QStringLiteral("Fluid download %1: %2% [%3]")
                             .arg(id)
                             .arg(*percent)
                             .arg(progress.statusText.value_or(QStringLiteral("downloading"))));
        onProgress(progress);
    };
    return downloader_.download(std::move(request), report, std::move(stop));
}

std::optional<TranscriptionModel> FluidTranscriptionProvider::describe(const QString& file) const
{
    return FluidModelFiles::describe(file);
}

} // namespace vantro
