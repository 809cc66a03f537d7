#pragma once

#include "base/SerialExecutor.h"
#include "base/network/NetworkThread.h"
#include "vantro/models/FileTransfer.h"

#include <QFuture>
#include <QMutex>
#include <QWaitCondition>

#include <map>
#include <memory>
#include <stop_token>

namespace vantro {

/// Fetches large files over HTTP, HTTPS or from a local folder, on a thread of its own, which the first download
/// starts.
///
/// A file is first collected in a part (PartFile) that survives breaks, and continued by a range request as long as the
/// server still has the same file. However many ask for a file, here or in another process, it is fetched once. System
/// proxies are used; certificates are checked against the system's and those in the file that SSL_CERT_FILE names.
class FileDownloader
{
public:
    /// Called on the network's thread, and not any more once a stop has been requested. Must not request one itself.
    using OnProgress = std::function<void(const DownloadProgress&)>;

    explicit FileDownloader(TransferOptions options = {});
    /// Stops what is running; the parts stay.
    ~FileDownloader();
    FileDownloader(const FileDownloader&) = delete;
    FileDownloader& operator=(const FileDownloader&) = delete;

    /// The future ends when the file stands under its name, or throws ModelDownloadError or what the request's own
    /// functions threw. Asking for a destination that is being fetched joins that download; it ends early only when
    /// all who asked have stopped. Any thread.
    [[nodiscard]] QFuture<void> download(TransferRequest request, OnProgress onProgress, std::stop_token stop = {});

private:
    struct Listener;
    struct PendingDownload;
    using PendingPointer = std::shared_ptr<PendingDownload>;

    /// Runs on the network's thread.
    QCoro::Task<> transfer(QNetworkAccessManager& manager, PendingPointer download);
    static void stop(PendingDownload& download);
    void leave(const PendingPointer& download, const Listener* listener);
    void publish(const PendingDownload& download, const DownloadProgress& progress);
    void finish(const PendingPointer& download, const std::exception_ptr& failure);

    TransferOptions options_;
    SerialExecutor files_{QStringLiteral("model files")}; ///< hashing and syncing, which take seconds
    QMutex pendingLock_;
    QWaitCondition allEnded_;
    std::map<QString, PendingPointer> pending_; ///< by destination; what nobody waits for has left
    int running_ = 0;
    NetworkThread network_{QStringLiteral("model downloads")};
};

} // namespace vantro
