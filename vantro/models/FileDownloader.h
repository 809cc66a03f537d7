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

/// Fetches large files over HTTP or HTTPS, or from a local folder, on a thread that the first download starts.
///
/// Data is collected in a PartFile that survives interruptions and is resumed with a range request as long as the
/// server still has the same file. Concurrent requests for one file, even from other processes, fetch it once. Uses the
/// system's proxies; trusts the system's certificates and those in the file named by SSL_CERT_FILE.
class FileDownloader
{
public:
    /// Called on the network thread, never after a stop request. Must not request a stop itself.
    using OnProgress = std::function<void(const DownloadProgress&)>;

    explicit FileDownloader(TransferOptions options = {});
    /// Stops running downloads; their parts are kept.
    ~FileDownloader();
    FileDownloader(const FileDownloader&) = delete;
    FileDownloader& operator=(const FileDownloader&) = delete;

    /// The future finishes when the file is in place; it throws ModelDownloadError or what the request's callbacks
    /// threw. Requests for a destination already being fetched join that download, which is stopped only when all of
    /// them have been. Any thread.
    [[nodiscard]] QFuture<void> download(TransferRequest request, OnProgress onProgress, std::stop_token stop = {});

private:
    struct Listener;
    struct PendingDownload;
    using PendingPointer = std::shared_ptr<PendingDownload>;

    /// Runs on the network thread.
    QCoro::Task<> transfer(QNetworkAccessManager& manager, PendingPointer download);
    static void stop(PendingDownload& download);
    void leave(const PendingPointer& download, const Listener* listener);
    void publish(const PendingDownload& download, const DownloadProgress& progress);
    void finish(const PendingPointer& download, const std::exception_ptr& failure);

    TransferOptions options_;
    SerialExecutor files_{QStringLiteral("model files")}; ///< hashing and syncing, which take seconds
    QMutex pendingLock_;
    QWaitCondition allEnded_;
    std::map<QString, PendingPointer> pending_; ///< by destination; abandoned downloads are removed
    int running_ = 0;
    NetworkThread network_{QStringLiteral("model downloads")};
};

} // namespace vantro
