#pragma once

#include "vantro/models/DownloadQueue.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace vantro {

/// The view model of one model's download. Main thread; lives as long as its window.
class ModelDownloadModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QString name READ name NOTIFY modelChanged)
    Q_PROPERTY(QString size READ size NOTIFY modelChanged)
    Q_PROPERTY(QString description READ description NOTIFY modelChanged)
    Q_PROPERTY(QString reason READ reason NOTIFY modelChanged)
    Q_PROPERTY(qreal progress READ progress NOTIFY statusChanged)
    Q_PROPERTY(QString statusText READ statusText NOTIFY statusChanged)
    Q_PROPERTY(bool running READ isRunning NOTIFY statusChanged)
    Q_PROPERTY(bool failed READ hasFailed NOTIFY statusChanged)
public:
    /// @p queue must outlive the model.
    explicit ModelDownloadModel(DownloadQueue& queue);

    [[nodiscard]] QString name() const { return model_.name; }
    [[nodiscard]] QString size() const { return model_.size; }
    [[nodiscard]] QString description() const { return model_.description; }
    /// Why the model has to be downloaded again; empty the first time.
    [[nodiscard]] QString reason() const { return reason_; }
    [[nodiscard]] qreal progress() const;
    [[nodiscard]] QString statusText() const { return queue_.statusText(model_.name); }
    /// Also while it waits for another one.
    [[nodiscard]] bool isRunning() const { return queue_.stateOf(model_.name) != DownloadQueue::State::idle; }
    [[nodiscard]] bool hasFailed() const { return !isRunning() && !queue_.failure(model_.name).isEmpty(); }

    void setModel(const TranscriptionModel& model, const QString& reason);

    Q_INVOKABLE void cancel() { queue_.cancel(model_.name); }
    Q_INVOKABLE void retry() { queue_.add(model_); }

Q_SIGNALS:
    void modelChanged();
    void statusChanged();

private:
    DownloadQueue& queue_;
    TranscriptionModel model_;
    QString reason_;
};

} // namespace vantro
