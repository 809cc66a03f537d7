#include "vantro/ui/download/ModelDownloadModel.h"

namespace vantro {

ModelDownloadModel::ModelDownloadModel(DownloadQueue& queue) : queue_(queue)
{
    connect(&queue_, &DownloadQueue::changed, this, &ModelDownloadModel::statusChanged);
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
    return queue_.stateOf(model_.name) == DownloadQueue::State::running ? static_cast<qreal>(queue_.progress()) : 0;
}

} // namespace vantro
