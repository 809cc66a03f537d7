#pragma once

#include "vantro/models/FileTransfer.h"

#include <QElapsedTimer>
#include <QFuture>
#include <QHash>
#include <QNetworkReply>
#include <QPromise>
#include <QTimer>

#include <exception>
#include <functional>
#include <vector>

namespace vantro {

/// One request for a file or the rest of it, written into the part. Lives on the network thread.
class Fetch final : public QObject
{
    Q_OBJECT
public:
    using OnBytes = std::function<void(qint64 receivedBytes, qint64 totalBytes)>;

    Fetch(QNetworkAccessManager& manager, PartFile& part, const TransferRequest& request,
          const TransferOptions& options, OnBytes onBytes);
    ~Fetch() override;

    /// Finishes when the whole body has been written or mustStartAnew() is set; throws ModelDownloadError.
    [[nodiscard]] QFuture<void> start();
    void stop();
    /// Whether the server cannot continue the existing part.
    [[nodiscard]] bool mustStartAnew() const { return mustStartAnew_; }

private:
    [[nodiscard]] QNetworkRequest networkRequest() const;
    void readHead();
    void acceptWhole();
    void acceptRest();
    void checkSpace() const;
    void pump();
    qint64 writeSome();
    void replyFinished();
    void checkStall();
    void end(std::exception_ptr failure);
    void guarded(const std::function<void()>& step);
    [[nodiscard]] ModelDownloadError replyError() const;
    [[nodiscard]] ModelDownloadError brokenOff() const;
    [[nodiscard]] int status() const;
    [[nodiscard]] QByteArray header(const QByteArray& name) const;
    void noteRedirect();
    [[nodiscard]] QString host() const;
    [[nodiscard]] PartNote noteFromHead() const;

    QNetworkAccessManager& manager_;
    PartFile& part_;
    const TransferRequest& request_;
    const TransferOptions& options_;
    OnBytes onBytes_;
    QPromise<void> promise_;
    QNetworkReply* reply_ = nullptr;
    QHash<QByteArray, QByteArray> redirect_; ///< headers of the latest redirect
    QTimer stallTimer_;
    QElapsedTimer lastHeard_;
    std::vector<char> buffer_;
    qint64 receivedBytes_ = 0; ///< including the part's previous bytes
    qint64 totalBytes_ = -1;
    bool isAccepted_ = false; ///< the body is the file or the rest of it
    bool isFinished_ = false; ///< the reply has finished; its buffer is still being written
    bool mustStartAnew_ = false;
};

} // namespace vantro
