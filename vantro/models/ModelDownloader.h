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

/// One download as an interface shows it: its progress is published at most once for every whole per cent. One at a
/// time. Main thread.
class ModelDownloader : public QObject
{
    Q_OBJECT
public:
    /// Lets a value through when its whole per cent differs from the last one's. Any thread.
    class PublishGate
    {
    public:
        [[nodiscard]] bool opensFor(float fraction);

    private:
        QMutex lock_;
        int lastPercent_ = -1;
    };

    ModelDownloader(const ModelCatalogue& catalogue, const SpeechEngines& engines);
    ~ModelDownloader() override;

    /// Whether the model is ready afterwards. A failure is left in statusText. A download that runs is not disturbed:
    /// false at once.
    QCoro::Task<bool> download(TranscriptionModel model);
    /// Ends the running download; what was fetched is kept.
    void cancel();

    [[nodiscard]] float progress() const { return progress_; }
    [[nodiscard]] std::optional<QString> statusText() const { return statusText_; }
    /// Rate and time left, as of the last published progress; empty while unknown.
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

    void receive(const std::shared_ptr<DownloadTask>& task, const DownloadProgress& progress);
    void setProgress(float progress, const QString& rateText);
    void setStatusText(const std::optional<QString>& text);

    const ModelCatalogue& catalogue_;
    const SpeechEngines& engines_;
    std::shared_ptr<DownloadTask> downloadTask_;
    float progress_ = 0;
    std::optional<QString> statusText_;
    QString rateText_;
};

} // namespace vantro
