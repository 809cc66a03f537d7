#include "vantro/models/DownloadQueue.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace vantro {

DownloadQueue::DownloadQueue(ModelDownloader& downloader) : downloader_(downloader)
{
    connect(&downloader_, &ModelDownloader::progressChanged, this, &DownloadQueue::changed);
    connect(&downloader_, &ModelDownloader::statusTextChanged, this, &DownloadQueue::changed);
}

DownloadQueue::~DownloadQueue() = default;

void DownloadQueue::add(const TranscriptionModel& model)
{
    if (stateOf(model.name) != State::idle)
        return;
    failures_.erase(model.name);
    models_.push_back(model);
    if (models_.size() == 1)
        work();
    Q_EMIT changed();
}

void DownloadQueue::cancel(const QString& name)
{
    if (stateOf(name) == State::running) {
        isCancelled_ = true;
        downloader_.cancel();
        return;
    }
    std::erase_if(models_, [&](const TranscriptionModel& model) { return model.name == name; });
    Q_EMIT changed();
}

DownloadQueue::State DownloadQueue::stateOf(const QString& name) const
{
    const auto found = std::ranges::find(models_, name, &TranscriptionModel::name);
    return found == models_.end() ? State::idle : found == models_.begin() ? State::running : State::waiting;
}

QString DownloadQueue::failure(const QString& name) const
{
    const auto found = failures_.find(name);
    return found != failures_.end() ? found->second : QString();
}

QString DownloadQueue::statusText(const QString& name) const
{
    const State state = stateOf(name);
    if (state == State::idle)
        return failure(name);
    if (state == State::waiting)
        return tr("Waiting for %1").arg(models_.front().name);
    if (const auto text = downloader_.statusText())
        return *text;
    if (downloader_.progress() <= 0.0F)
        return tr("Connecting");
    const QString percent = tr("%1 %").arg(static_cast<int>(downloader_.progress() * 100));
    const QString rate = downloader_.rateText();
    return rate.isEmpty() ? percent : percent + QStringLiteral(" \u00B7 ") + rate;
}

QCoro::Task<> DownloadQueue::work()
{
    const QPointer<DownloadQueue> self(this);
    while (self && !models_.empty()) {
        isCancelled_ = false;
        const TranscriptionModel model = models_.front();
        const auto downloading = downloader_.download(model);
        const bool isReady = co_await downloading;
        if (self)
            settle(model.name, isReady);
    }
}

void DownloadQueue::settle(const QString& name, bool isReady)
{
    if (!isReady && !isCancelled_)
        failures_[name] = downloader_.statusText().value_or(QString());
    models_.erase(models_.begin());
    Q_EMIT changed();
    if (isReady)
        Q_EMIT finished(name);
}

} // namespace vantro
