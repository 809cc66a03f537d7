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

ModelDownloader::ModelDownloader(const ModelCatalogue& catalogue, ProviderOf providerOf)
    : catalogue_(catalogue)
    , providerOf_(std::move(providerOf))
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
    const bool isFluid = model.engine == TranscriptionEngine::fluid;
    printLine(QStringLiteral("Starting download via %1 provider: %2")
                  .arg(isFluid ? QStringLiteral("Fluid") : QStringLiteral("whisper.cpp"), model.name));
    const auto task = std::make_shared<DownloadTask>();
    downloadTask_ = task;
    setStatusText(std::nullopt);
    Q_EMIT isRunningChanged();

    const QPointer<ModelDownloader> self(this);
    QString failure;
    try {
        co_await fetch(model);
    } catch (const std::exception& error) {
        failure = localizedDescription(error);
    }
    if (!self)
        co_return false;
    if (failure.isEmpty()) {
        setProgress(1.0F, {});
        setStatusText(std::nullopt);
    } else {
        printLine(QStringLiteral("Model download failed: ") + failure);
        setProgress(progress_, {});
        setStatusText(task->stop.stop_requested() ? failure : QStringLiteral("Download failed: ") + failure);
    }
    downloadTask_.reset();
    Q_EMIT isRunningChanged();
    co_return failure.isEmpty();
}

QCoro::Task<> ModelDownloader::fetch(TranscriptionModel model)
{
    // The host may be another one since the caller took its copy.
    if (const auto* current = catalogue_.find(model.name))
        model = *current;
    ModelProviding* provider = providerOf_(model);
    if (provider == nullptr)
        throw Error(tr("This installation has no engine for the model \"%1\". Choose another model.").arg(model.name));
    const auto onProgress = [this, task = downloadTask_](const auto& progress) {
        receive(task, progress);
    };
    const auto stop = downloadTask_->stop.get_token();
    co_await provider->downloadModel(model, onProgress, stop);
    // A file with the wrong content is stored but never used: the check removes it.
    const ModelCheck check = co_await provider->check(model);
    if (!check.isReady)
        throw ModelDownloadError::wrongContent(check.problem);
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
