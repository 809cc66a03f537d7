#include "vantro/models/ModelDownloader.h"

#include "base/Logger.h"

#include <QMutexLocker>
#include <QPointer>
#include <qcoro/qcorofuture.h>

#include <utility>

namespace vantro {

bool ModelDownloader::PublishGate::opensFor(float fraction)
{
    const int percent = static_cast<int>(fraction * 100.0F);
    const QMutexLocker locker(&lock_);
    if (percent == lastPercent_)
        return false;
    lastPercent_ = percent;
    return true;
}

ModelDownloader::ModelDownloader(const ModelCatalogue& catalogue, const SpeechEngines& engines, ModelKeeper* others)
    : catalogue_(catalogue)
    , engines_(engines)
    , others_(others)
{
}

ModelDownloader::~ModelDownloader()
{
    cancel();
}

void ModelDownloader::cancel()
{
    if (downloadTask_)
        downloadTask_->stop.request_stop();
}

QCoro::Task<bool> ModelDownloader::download(TranscriptionModel model)
{
    if (downloadTask_)
        co_return false;
    // The host may have changed since the caller copied the model.
    if (const auto* current = catalogue_.find(model.name))
        model = *current;
    ModelKeeper& keeper = keeperOf(model);
    printLine(QStringLiteral("Starting download via %1 provider: %2").arg(keeper.label(), model.name));
    const auto task = std::make_shared<DownloadTask>();
    downloadTask_ = task;
    setStatusText(std::nullopt);
    Q_EMIT isRunningChanged();

    const QPointer<ModelDownloader> self(this);
    QString failure;
    try {
        const auto onProgress = [this, task](const auto& progress) {
            receive(task, progress);
        };
        co_await keeper.download(model, onProgress, task->stop.get_token());
    } catch (const std::exception& error) {
        failure = localizedDescription(error);
    }
    if (!self)
        co_return false;
    if (failure.isEmpty()) {
        setProgress(1.0F, {});
        setStatusText(std::nullopt);
    } else {
        const bool isCancelled = task->stop.stop_requested();
        printLine((isCancelled ? QStringLiteral("Model download ended: ") : QStringLiteral("Model download failed: ")) +
                  failure);
        setProgress(progress_, {});
        setStatusText(isCancelled ? failure : tr("Download failed: ") + failure);
    }
    downloadTask_.reset();
    Q_EMIT isRunningChanged();
    co_return failure.isEmpty();
}

ModelKeeper& ModelDownloader::keeperOf(const TranscriptionModel& model) const
{
    return others_ != nullptr && others_->kind() == model.engine ? *others_ : engines_.of(model);
}

void ModelDownloader::receive(const std::shared_ptr<DownloadTask>& task, const DownloadProgress& progress)
{
    task->rate.note(std::chrono::steady_clock::now(), progress.receivedBytes);
    const bool opens = task->gate.opensFor(progress.fraction());
    if (!opens && task->statusText == progress.statusText)
        return;
    task->statusText = progress.statusText;
    const qint64 remaining = progress.totalBytes < 0 ? -1 : progress.totalBytes - progress.receivedBytes;
    QMetaObject::invokeMethod(this, [this, task, progress, opens, rateText = task->rate.text(remaining)] {
        if (task != downloadTask_ || task->stop.stop_requested())
            return;
        if (opens)
            setProgress(progress.fraction(), rateText);
        setStatusText(progress.statusText);
    });
}

void ModelDownloader::setProgress(float progress, const QString& rateText)
{
    progress_ = progress;
    rateText_ = rateText;
    Q_EMIT progressChanged();
}

void ModelDownloader::setStatusText(const std::optional<QString>& text)
{
    if (text == statusText_)
        return;
    statusText_ = text;
    Q_EMIT statusTextChanged();
}

} // namespace vantro
