#pragma once

#include "base/SerialExecutor.h"
#include "vantro/models/ModelDownloadError.h"
#include "vantro/models/PartFile.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QPointer>
#include <QUrl>
#include <qcoro/qcorotask.h>

#include <chrono>
#include <functional>
#include <optional>

namespace vantro {

class Fetch;

/// How far a download is. Comes some hundred times a second when the network is quick.
struct DownloadProgress
{
    qint64 receivedBytes = 0;
    qint64 totalBytes = -1; ///< negative while unknown
    /// What is going on when it is not plain receiving.
    std::optional<QString> statusText;

    /// received / total in 32-bit floating point; 0 while the total is unknown.
    [[nodiscard]] float fraction() const
    {
        return totalBytes < 1 ? 0.0F : static_cast<float>(receivedBytes) / static_cast<float>(totalBytes);
    }
};

struct TransferOptions
{
    /// How long nothing at all may come.
    std::chrono::milliseconds stallTimeout = std::chrono::seconds(30);
    /// A connection that breaks after it has brought something is made again, at most so often.
    int reconnections = 4;
    std::chrono::milliseconds reconnectionPause = std::chrono::seconds(1);
};

struct TransferRequest
{
    QUrl url;
    QString destination; ///< the file's path; its folder is made when missing
    QString sha1;        ///< names the wanted content: a part of another content is not continued
    /// Asked once the right to write the file was obtained: somebody else may have fetched it. On a worker thread.
    std::function<bool()> isThere;
    /// Called when the file stands under its name, before anybody else may write it. On a worker thread.
    std::function<void()> onStored;
};

/// One file on its way from its place in the network to its place on the disk. Lives on the network's thread.
class FileTransfer
{
    Q_DECLARE_TR_FUNCTIONS(FileTransfer)
public:
    using OnProgress = std::function<void(const DownloadProgress&)>;

    FileTransfer(QNetworkAccessManager& manager, SerialExecutor& files, const TransferOptions& options,
                 TransferRequest request, OnProgress onProgress);
    ~FileTransfer();

    /// Ends when the file stands under its name; throws ModelDownloadError, or what the request's own functions throw.
    [[nodiscard]] QCoro::Task<> run();
    /// Makes run() end soon, with ModelDownloadError::cancelled unless the file is complete by then.
    void stop();

private:
    QCoro::Task<FileLock> takeLock();
    QCoro::Task<> fetchAll();
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
    QPointer<Fetch> fetch_;
    bool isStopped_ = false;
};

} // namespace vantro
