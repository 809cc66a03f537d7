#pragma once

#include "vantro/models/ModelDownloader.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace vantro {

/// The view model of a model download. Main thread; lives as long as its window.
class ModelDownloadModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QString name READ name NOTIFY modelChanged)
    Q_PROPERTY(QString size READ size NOTIFY modelChanged)
    Q_PROPERTY(QString description READ description NOTIFY modelChanged)
    Q_PROPERTY(QString reason READ reason NOTIFY modelChanged)
    Q_PROPERTY(qreal progress READ progress NOTIFY progressChanged)
    Q_PROPERTY(QString statusText READ statusText NOTIFY statusChanged)
    Q_PROPERTY(bool running READ isRunning NOTIFY statusChanged)
    Q_PROPERTY(bool failed READ hasFailed NOTIFY statusChanged)
public:
    explicit ModelDownloadModel(ModelDownloader& downloader);

    [[nodiscard]] QString name() const { return model_.name; }
    [[nodiscard]] QString size() const { return model_.size; }
    [[nodiscard]] QString description() const { return model_.description; }
    /// Why the model has to be downloaded again; empty the first time.
    [[nodiscard]] QString reason() const { return reason_; }
    [[nodiscard]] qreal progress() const;
    /// The status of the downloader, or else percentage and rate.
    [[nodiscard]] QString statusText() const;
    [[nodiscard]] bool isRunning() const { return downloader_.isRunning(); }
    [[nodiscard]] bool hasFailed() const;

    void setModel(const TranscriptionModel& model, const QString& reason);
    [[nodiscard]] const TranscriptionModel& model() const { return model_; }

    Q_INVOKABLE void cancel();
    Q_INVOKABLE void retry();

Q_SIGNALS:
    void modelChanged();
    void progressChanged();
    void statusChanged();
    /// The model is ready to use.
    void succeeded();

private:
    QCoro::Task<> download();

    ModelDownloader& downloader_;
    TranscriptionModel model_;
    QString reason_;
    bool isCancelled_ = false;
};

} // namespace vantro
