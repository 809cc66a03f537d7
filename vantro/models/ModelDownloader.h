#pragma once

#include "vantro/models/ModelCatalogue.h"
#include "vantro/models/SpeechEngine.h"
#include "vantro/models/TransferRate.h"

#include <QMutex>
#include <QObject>
#include <qcoro/qcorotask.h>

#include <memory>
#include <optional>

namespace vantro {

/// One download at a time, as the user interface shows it; progress is published at most once per whole per cent. Main
/// thread.
class ModelDownloader : public QObject
{
    Q_OBJECT
public:
    /// Passes a value when its whole per cent differs from the last one's. Any thread.
    class PublishGate
    {
    public:
        [[nodiscard]] bool opensFor(float fraction);

    private:
        QMutex lock_;
        int lastPercent_ = -1;
    };

    /// @p others: keeps the models that no engine of @p engines runs; may be null.
    ModelDownloader(const ModelCatalogue& catalogue, const SpeechEngines& engines, ModelKeeper* others = nullptr);
    ~ModelDownloader() override;

    /// Returns whether the model is ready; statusText holds the failure. Returns false at once while another download
    /// is running.
    QCoro::Task<bool> download(TranscriptionModel model);
    /// Stops the running download and keeps its part.
    void cancel();

    [[nodiscard]] float progress() const { return progress_; }
    [[nodiscard]] std::optional<QString> statusText() const { return statusText_; }
    /// Rate and time left at the last published progress; empty while unknown.
    [[nodiscard]] QString rateText() const { return rateText_; }
    [[nodiscard]] bool isRunning() const { return downloadTask_ != nullptr; }

Q_SIGNALS:
    void progressChanged();
    void statusTextChanged();
    void isRunningChanged();

private:
    struct DownloadTask
    {
        std::stop_source stop;
        PublishGate gate;
        TransferRate rate;                 ///< network thread
        std::optional<QString> statusText; ///< network thread
    };

    [[nodiscard]] ModelKeeper& keeperOf(const TranscriptionModel& model) const;
    void receive(const std::shared_ptr<DownloadTask>& task, const DownloadProgress& progress);
    void setProgress(float progress, const QString& rateText);
    void setStatusText(const std::optional<QString>& text);

    const ModelCatalogue& catalogue_;
    const SpeechEngines& engines_;
    ModelKeeper* others_;
    std::shared_ptr<DownloadTask> downloadTask_;
    float progress_ = 0;
    std::optional<QString> statusText_;
    QString rateText_;
};

} // namespace vantro
