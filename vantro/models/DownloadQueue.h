#pragma once

#include "vantro/models/ModelDownloader.h"

#include <QObject>
#include <qcoro/qcorotask.h>

#include <map>
#include <vector>

namespace vantro {

/// Downloads models one after the other, in the order in which they were asked for. Main thread.
class DownloadQueue final : public QObject
{
    Q_OBJECT
public:
    enum class State { idle, waiting, running };

    /// @p downloader: used by nobody else; must outlive the queue.
    explicit DownloadQueue(ModelDownloader& downloader);
    ~DownloadQueue() override;

    /// Does nothing for a model that waits or is being downloaded.
    void add(const TranscriptionModel& model);
    /// Keeps what has been downloaded.
    void cancel(const QString& name);

    [[nodiscard]] State stateOf(const QString& name) const;
    /// Why the latest download of that model ended without it; empty when it was cancelled.
    [[nodiscard]] QString failure(const QString& name) const;
    /// 0..1, of the one that is running.
    [[nodiscard]] float progress() const { return downloader_.progress(); }
    /// What is going on with a model, for the user: "43 % · 12 MB/s", "Waiting"; empty when nothing is.
    [[nodiscard]] QString statusText(const QString& name) const;

Q_SIGNALS:
    void changed();
    /// A model is ready to use.
    void finished(const QString& name);

private:
    QCoro::Task<> work();
    void settle(const QString& name, bool isReady);

    ModelDownloader& downloader_;
    std::vector<TranscriptionModel> models_; ///< the first one is being downloaded
    bool isCancelled_ = false;               ///< the first one
    std::map<QString, QString> failures_;    ///< by name
};

} // namespace vantro
