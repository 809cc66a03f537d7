#include "vantro/fluid/FluidAsrEngine.h"

#include "asr/ASRError.h"
#include "base/Error.h"
#include "base/Stop.h"
#include "platform/ThisProcess.h"
#include "vantro/fluid/ErrorDetail.h"
#include "vantro/fluid/TailCoverage.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMetaObject>
#include <qcoro/qcorofuture.h>

#include <new>
#include <tuple>
#include <utility>

namespace vantro {

namespace {

void requireWanted(const std::stop_token& stop)
{
    if (stop.stop_requested())
        throw asr::ASRError(asr::ASRError::Kind::processingFailed, "stopped");
}

} // namespace

std::vector<std::filesystem::path> processorModuleFolders()
{
    const std::filesystem::path program = QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
    return {program, program / "../lib/vantro"};
}

FluidAsrEngine::FluidAsrEngine(std::vector<std::filesystem::path> moduleFolders)
    : moduleFolders_(std::move(moduleFolders))
    , loader_(QStringLiteral("fluid-load"))
    , executor_(QStringLiteral("fluid"))
{
}

QFuture<FluidAsrEngine::Manager> FluidAsrEngine::startLoad(const FluidModelSource& model)
{
    logger_.info(QStringLiteral("Loading Fluid model %1 (first use downloads ~0.6 GB)").arg(model.id));
    return loader_.run([this, model] {
        auto models = asr::AsrModels::load(QFile::encodeName(model.file).toStdString(), model.version, moduleFolders_);
        auto manager =
            std::make_shared<asr::AsrManager>(asr::ASRConfig(), [logger = &logger_](const std::string& line) {
                logger->info(QString::fromStdString(line));
            });
        manager->initialize(std::move(models));
        return manager;
    });
}

QCoro::Task<FluidAsrEngine::Manager> FluidAsrEngine::load(FluidModelSource model, std::stop_token stop)
{
    const Identity wanted{model.id, FileVersion::of(model.file)};
    if (manager_ != nullptr && loaded_ == wanted) {
        // With GCC 12, co_return would move from the member itself.
        Manager loaded = manager_;
        co_return loaded;
    }
    if (!loadTask_ || loading_ != wanted) {
        loadTask_ = startLoad(model);
        loading_ = wanted;
    }
    const QFuture<Manager> task = *loadTask_;
    const int unloadCount = unloadCount_;
    co_await finishedOrStopped(task, stop);
    requireWanted(stop);
    try {
        Manager loaded = co_await task;
        if (unloadCount == unloadCount_) {
            manager_ = loaded;
            loaded_ = wanted;
        }
        if (loading_ == wanted)
            loadTask_.reset();
        logger_.info(QStringLiteral("Fluid model %1 ready").arg(model.id));
        co_return loaded;
    } catch (const std::exception& error) {
        if (loading_ == wanted)
            loadTask_.reset();
        logger_.error(QStringLiteral("Fluid load failed: ") + detailOf(error));
        throw;
    }
}

void FluidAsrEngine::unload()
{
    ++unloadCount_;
    loadTask_.reset();
    // Giving back hundreds of megabytes takes too long for the calling thread.
    vocabularyPipeline_.reset();
    std::ignore = loader_.run([this, manager = std::exchange(manager_, nullptr)] { ctcModel_.reset(); });
}

std::optional<FluidAsrEngine::PipelineBuild> FluidAsrEngine::pipelineFor(const FluidVocabulary& vocabulary)
{
    if (vocabulary.terms.empty())
        return std::nullopt;
    const QString key = vocabulary.key();
    const FileVersion modelFile = FileVersion::of(vocabulary.modelFile);
    const auto isUsable = [](const PipelineBuild& build) {
        return !build.isFinished() || build.result().pipeline != nullptr;
    };
    if (!vocabularyPipeline_ || vocabularyPipeline_->key != key || vocabularyPipeline_->modelFile != modelFile ||
        !isUsable(vocabularyPipeline_->build)) {
        logger_.info(QStringLiteral("Loading vocabulary boosting pipeline (%1 terms)").arg(vocabulary.terms.size()));
        vocabularyPipeline_ =
            Pipeline{key, modelFile,
                     loader_.run([this, vocabulary, modelFile] { return buildPipeline(vocabulary, modelFile); })};
    }
    return vocabularyPipeline_->build;
}

/// On the loader's thread. Throws Error, which names the file: two models are in use.
std::shared_ptr<const asr::CtcModel> FluidAsrEngine::loadCtcModel(const QString& file) const
{
    try {
        return asr::CtcModel::load(QFile::encodeName(file).toStdString(), moduleFolders_);
    } catch (const asr::ASRError& error) {
        if (error.kind() != asr::ASRError::Kind::modelLoadFailed)
            throw;
        throw Error(QCoreApplication::translate("ModelFiles", "%1 is not a usable model: %2")
                        .arg(file, QString::fromStdString(error.detail())));
    }
}

/// On the loader's thread. Never throws.
FluidVocabularyBuild FluidAsrEngine::buildPipeline(const FluidVocabulary& vocabulary, const FileVersion& modelFile)
{
    try {
        if (vocabulary.modelFile.isEmpty())
            throw Error(QCoreApplication::translate(
                "ModelFiles", "The model that looks for words is missing: Settings, Vocabulary tells how to get it."));
        if (ctcModel_ == nullptr || ctcModelFile_ != modelFile) {
            ctcModel_.reset();
            ctcModel_ = loadCtcModel(vocabulary.modelFile);
            ctcModelFile_ = modelFile;
        }
        return {FluidVocabularyPipeline::make(vocabulary.terms, ctcModel_), {}};
    } catch (const std::exception& error) {
        return {nullptr, detailOf(error)};
    }
}

QCoro::Task<QString> FluidAsrEngine::prepare(FluidModelSource model)
{
    try {
        co_await load(std::move(model));
        co_return QString();
    } catch (const std::exception& error) {
        logger_.error(QStringLiteral("Fluid prepare failed: ") + detailOf(error));
        co_return localizedDescription(error);
    }
}

QCoro::Task<FluidTranscript> FluidAsrEngine::transcribe(Request request)
{
    const Manager manager = co_await load(request.model, request.stop);
    const QFuture<void> turn = executor_.run([] {});
    co_await finishedOrStopped(turn, request.stop);
    requireWanted(request.stop);
    QElapsedTimer timer;
    timer.start();
    const QString label = request.label;
    const std::size_t sampleCount = request.samples.size();
    const QFuture<FluidTranscript> running = start(manager, std::move(request));
    FluidTranscript transcript = co_await running;
    reportVocabulary(transcript);
    report(label, sampleCount, transcript.result);
    logger_.info(QStringLiteral("Transcription finished in %1 s (%2, vocabulary %3)")
                     .arg(static_cast<double>(timer.elapsed()) / 1'000, 0, 'f', 3)
                     .arg(label, transcript.hasVocabulary ? QStringLiteral("on") : QStringLiteral("off")));
    co_return transcript;
}

bool FluidAsrEngine::hear(const Unfinished& recording)
{
    if (manager_ == nullptr || loaded_.id != recording.model.id)
        return false;
    if (!live_ || live_->label != recording.label)
        live_ = beginLive(recording);
    std::vector<float> fresh(recording.samples.begin() + static_cast<std::ptrdiff_t>(live_->given),
                             recording.samples.end());
    live_->given = recording.samples.size();
    std::ignore = executor_.run([this, live = live_, fresh = std::move(fresh), mayHaveEnded = recording.mayHaveEnded] {
        if (!live->stream)
            return;
        try {
            live->stream->append(fresh);
            if (mayHaveEnded)
                live->stream->speculate();
        } catch (const std::exception& error) {
            // It may lack samples now: the recording is transcribed as a whole.
            logger_.error(QStringLiteral("No longer recognised while it is made: ") + detailOf(error));
            live->stream.reset();
        }
    });
    return true;
}

std::shared_ptr<FluidAsrEngine::Live> FluidAsrEngine::beginLive(const Unfinished& recording)
{
    auto live = std::make_shared<Live>();
    live->label = recording.label;
    live->manager = manager_;
    live->language = recording.language;
    asr::StreamingAsr::Options options;
    options.language = recording.language;
    options.onBackgroundThread = process::lowerPriorityOfThisThread;
    options.onSpeculated = [this, onWords = recording.onWords](const asr::ASRResult& result) {
        QMetaObject::invokeMethod(
            &context_, [onWords, text = QString::fromStdString(result.text)] { onWords(text); }, Qt::QueuedConnection);
    };
    const FluidVocabulary vocabulary = recording.vocabulary ? recording.vocabulary() : FluidVocabulary();
    live->vocabularyKey = vocabulary.key();
    std::ignore = executor_.run([this, live, options = std::move(options), build = pipelineFor(vocabulary)] {
        try {
            live->stream = std::make_unique<BoostedStream>(*live->manager, options, build);
        } catch (const std::exception& error) {
            logger_.error(QStringLiteral("Not recognised while it is made: ") + detailOf(error));
        }
    });
    return live;
}

void FluidAsrEngine::hurry()
{
    if (live_)
        std::ignore = executor_.run([live = live_] {
            if (live->stream)
                live->stream->hurry();
        });
}

void FluidAsrEngine::forget()
{
    // On the engine's thread, because its last operation may have to be waited for.
    std::ignore = executor_.run([live = std::move(live_)]() mutable { live.reset(); });
}

/// Whether what was heard is the beginning of what is to be transcribed, under the same conditions.
std::shared_ptr<FluidAsrEngine::Live> FluidAsrEngine::liveFor(const Manager& manager, const Request& request) const
{
    const bool isSame = live_ && live_->label == request.label && live_->manager == manager &&
                        live_->language == request.language && live_->vocabularyKey == request.vocabulary.key() &&
                        live_->given <= request.samples.size();
    return isSame ? live_ : nullptr;
}

// Not inside the coroutine: GCC 12 destroys a lambda's captures twice when it is a temporary in a co_await expression.
QFuture<FluidTranscript> FluidAsrEngine::start(Manager manager, Request request)
{
    auto live = liveFor(manager, request);
    const std::size_t given = live ? live->given : 0;
    auto build = live ? std::nullopt : pipelineFor(request.vocabulary);
    return executor_.run([live = std::move(live), given, build = std::move(build), manager = std::move(manager),
                          work = std::move(request)] {
        try {
            if (live && live->stream) {
                live->stream->append(std::span(work.samples).subspan(given));
                return live->stream->finish({work.onProgress, work.stop});
            }
            asr::StreamingAsr::Options options;
            options.language = work.language;
            options.isLive = false;
            BoostedStream whole(*manager, options, build);
            whole.append(work.samples);
            return whole.finish({work.onProgress, work.stop});
        } catch (const std::bad_alloc&) {
            throw asr::ASRError(asr::ASRError::Kind::processingFailed, "out of memory");
        }
    });
}

void FluidAsrEngine::reportVocabulary(const FluidTranscript& transcript) const
{
    if (transcript.spotting)
        logger_.info(
            QStringLiteral("CTC keyword spotting finished in %1 s").arg(transcript.spotting->count(), 0, 'f', 3));
    if (transcript.replacements > 0)
        logger_.info(QStringLiteral("Vocabulary boosting applied %1 replacement(s)").arg(transcript.replacements));
    if (!transcript.skipped.isEmpty())
        logger_.info(QStringLiteral("Vocabulary boosting skipped: ") + transcript.skipped);
}

void FluidAsrEngine::report(const QString& label, std::size_t sampleCount, const asr::ASRResult& result) const
{
    const bool hasText = !QString::fromStdString(result.text).trimmed().isEmpty();
    const TailCoverage coverage = TailCoverage::of(sampleCount, result);
    const QString message = coverage.message(label, hasText);
    if (coverage.isSuspicious() && hasText)
        logger_.error(message);
    else
        logger_.info(message);
}

} // namespace vantro
