#include "vantro/ui/download/ModelDownloadModel.h"

#include <QPointer>

namespace vantro {

ModelDownloadModel::ModelDownloadModel(ModelDownloader& downloader) : downloader_(downloader)
{
    connect(&downloader_, &ModelDownloader::progressChanged, this, &ModelDownloadModel::progressChanged);
    connect(&downloader_, &ModelDownloader::progressChanged, this, &ModelDownloadModel::statusChanged);
    connect(&downloader_, &ModelDownloader::statusTextChanged, this, &ModelDownloadModel::statusChanged);
    connect(&downloader_, &ModelDownloader::isRunningChanged, this, &ModelDownloadModel::statusChanged);
}

void ModelDownloadModel::setModel(const TranscriptionModel& model, const QString& reason)
{
    model_ = model;
    reason_ = reason;
    Q_EMIT modelChanged();
    Q_EMIT statusChanged();
}

qreal ModelDownloadModel::progress() const
{
    return static_cast<qreal>(downloader_.progress());
}

QString ModelDownloadModel::statusText() const
{
    if (const auto text = downloader_.statusText())
        return *text;
    if (downloader_.progress() <= 0.0F)
        return tr("Connecting");
    const QString percent = tr("%1 %").arg(static_cast<int>(downloader_.progress() * 100));
    const QString rate = downloader_.rateText();
    return rate.isEmpty() ? percent : percent + QStringLiteral(" \u00B7 ") + rate;
}

bool ModelDownloadModel::hasFailed() const
{
    return !isRunning() && !isCancelled_ && downloader_.statusText().has_value();
}

void ModelDownloadModel::cancel()
{
    isCancelled_ = true;
    downloader_.cancel();
}

void ModelDownloadModel::retry()
{
    download();
}

QCoro::Task<> ModelDownloadModel::download()
{
    isCancelled_ = false;
    const QPointer<ModelDownloadModel> self(this);
    const auto downloaded = downloader_.download(model_);
    const bool isReady = co_await downloaded;
    if (self && isReady)
        Q_EMIT succeeded();
}

} // namespace vantro
