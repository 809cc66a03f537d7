#pragma once

#include "base/SerialExecutor.h"
#include "vantro/models/ModelDownloadError.h"
#include "vantro/models/PartFile.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QUrl>
#include <qcoro/qcorotask.h>

#include <chrono>
#include <functional>
#include <optional>

namespace vantro {

class Fetch;

/// A download's progress, reported some hundred times a second on a fast network.
struct DownloadProgress
{
    qint64 receivedBytes = 0;
    qint64 totalBytes = -1; ///< negative while unknown
    /// What is happening, unless it is simply receiving data.
    std::optional<QString> statusText;

    /// received / total in 32-bit floating point; 0 while the total is unknown.
    [[nodiscard]] float fraction() const
    {
        return totalBytes < 1 ? 0.0F : static_cast<float>(receivedBytes) / static_cast<float>(totalBytes);
    }
};

struct TransferOptions
{
    /// The longest time without any data.
    std::chrono::milliseconds stallTimeout = std::chrono::seconds(30);
    /// How often a connection that made progress before it broke is re-established.
    int reconnections = 4;
    std::chrono::milliseconds reconnectionPause = std::chrono::seconds(1);
};

struct TransferRequest
{
    QUrl url;
    QString destination; ///< the file's path; its folder is created when missing
    QString sha1;        ///< identifies the content; a part of other content is not resumed
    /// Unless empty, the host is asked which SHA-256 its file has, as large-file stores announce it, and this is called
    /// with it when the fetched file has it, before onStored; with nothing if it announces none. A file with another
    /// one is refused. On a worker thread.
    std::function<void(const QString& sha256)> onCompared;
    /// Called once the lock is held, because somebody else may have fetched the file. On a worker thread.
    std::function<bool()> isThere;
    /// Called when the file is in place, with the lock still held. On a worker thread.
    std::function<void()> onStored;
};

/// Fetches one file to its destination, with resumption and retries. Lives on the network thread.
class FileTransfer
{
    Q_DECLARE_TR_FUNCTIONS(FileTransfer)
public:
    using OnProgress = std::function<void(const DownloadProgress&)>;

    FileTransfer(QNetworkAccessManager& manager, SerialExecutor& files, const TransferOptions& options,
                 TransferRequest request, OnProgress onProgress);
    ~FileTransfer();

    /// Finishes when the file is in place; throws ModelDownloadError or what the request's callbacks throw.
    [[nodiscard]] QCoro::Task<> run();
    /// Makes run() throw ModelDownloadError::cancelled soon, unless the file is complete by then.
    void stop();

private:
    QCoro::Task<FileLock> takeLock();
    QCoro::Task<QString> askDigest();
    QCoro::Task<> fetchAll();
    void compare(const QString& digest);
    QCoro::Task<bool> fetchOnce();
    QCoro::Task<> pause(std::chrono::milliseconds duration, const QString& reason);
    void publish(const std::optional<QString>& statusText = std::nullopt);
    [[nodiscard]] bool isPartUsable() const;
    [[nodiscard]] bool isPartComplete() const;

    QNetworkAccessManager& manager_;
    SerialExecutor& files_;
    const TransferOptions& options_;
    TransferRequest request_;
    OnProgress onProgress_;
    PartFile part_;
    DownloadProgress progress_;
    QPointer<QNetworkReply> head_;
    QPointer<Fetch> fetch_;
    bool isStopped_ = false;
};

} // namespace vantro
