#include "vantro/fluid/FluidAsrEngine.h"

#include "asr/ASRError.h"
#include "base/Error.h"
#include "base/Stop.h"
#include "vantro/fluid/TailCoverage.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <qcoro/qcorofuture.h>

#include <tuple>
#include <utility>

namespace vantro {

namespace {

QString detailOf(const std::exception& error)
{
    const auto* asrError = dynamic_cast<const asr::ASRError*>(&error);
    return asrError != nullptr && !asrError->detail().empty()
               ? QStringLiteral("%1 (%2)").arg(localizedDescription(error), QString::fromStdString(asrError->detail()))
               : localizedDescription(error);
}

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
    std::ignore = loader_.run([manager = std::exchange(manager_, nullptr)] {});
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

QCoro::Task<asr::ASRResult> FluidAsrEngine::transcribe(Request request)
{
    const Manager manager = co_await load(request.model, request.stop);
    const QFuture<void> turn = executor_.run([] {});
    co_await finishedOrStopped(turn, request.stop);
    requireWanted(request.stop);
    QElapsedTimer timer;
    timer.start();
    const QString label = request.label;
    const std::size_t sampleCount = request.samples.size();
    const QFuture<asr::ASRResult> running = start(manager, std::move(request));
    asr::ASRResult result = co_await running;
    report(label, sampleCount, result);
    logger_.info(QStringLiteral("Transcription finished in %1 s (%2, vocabulary off)")
                     .arg(static_cast<double>(timer.elapsed()) / 1'000, 0, 'f', 3)
                     .arg(label));
    co_return result;
}

// Not inside the coroutine: GCC 12 destroys a lambda's captures twice when it is a temporary in a co_await expression.
QFuture<asr::ASRResult> FluidAsrEngine::start(Manager manager, Request request)
{
    return executor_.run([manager = std::move(manager), work = std::move(request)] {
        asr::TdtDecoderState state;
        asr::AsrManager::Options options;
        options.language = work.language;
        options.onProgress = work.onProgress;
        options.stop = work.stop;
        return manager->transcribe(work.samples, state, options);
    });
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
