#include "vantro/models/FileTransfer.h"

#include "base/network/NetworkRequest.h"
#include "vantro/models/Fetch.h"
#include "vantro/models/Sha1.h"

#include <QNetworkReply>
#include <QRegularExpression>
#include <QScopedPointer>
#include <QTimer>
#include <qcoro/qcorofuture.h>
#include <qcoro/qcorosignal.h>
#include <qcoro/qcorotimer.h>

#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto lockPollInterval = 200ms;

} // namespace

FileTransfer::FileTransfer(QNetworkAccessManager& manager, SerialExecutor& files, const TransferOptions& options,
                           TransferRequest request, OnProgress onProgress)
    : manager_(manager)
    , files_(files)
    , options_(options)
    , request_(std::move(request))
    , onProgress_(std::move(onProgress))
    , part_(request_.destination)
{
}

FileTransfer::~FileTransfer() = default;

void FileTransfer::stop()
{
    isStopped_ = true;
    if (head_)
        head_->abort();
    if (fetch_)
        fetch_->stop();
}

QCoro::Task<> FileTransfer::run()
{
    const FileLock lock = co_await takeLock();
    if (request_.isThere) {
        const QFuture<bool> isThere = files_.run(request_.isThere);
        if (co_await isThere)
            co_return;
    }
    if (!isPartUsable())
        part_.discard();
    QString digest;
    if (request_.onCompared)
        digest = co_await askDigest();
    co_await fetchAll();
    publish(tr("Checking the file"));
    const auto settle = [this, digest] {
        if (request_.onCompared)
            compare(digest);
        part_.settle();
        if (request_.onStored)
            request_.onStored();
    };
    const QFuture<void> settled = files_.run(settle);
    co_await settled;
}

/// In the answer to a request for the head, which may redirect to where the file is.
QCoro::Task<QString> FileTransfer::askDigest()
{
    if (request_.url.isLocalFile())
        co_return QString();
    QNetworkRequest request = network::request(request_.url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setTransferTimeout(static_cast<int>(options_.stallTimeout.count()));
    // Deleted later: what follows runs in the middle of its signal.
    const QScopedPointer<QNetworkReply, QScopedPointerDeleteLater> reply(manager_.head(request));
    head_ = reply.get();
    co_await qCoro(reply.get(), &QNetworkReply::finished);
    static const QRegularExpression digest(QStringLiteral("[0-9a-f]{64}"));
    co_return digest.match(QString::fromLatin1(reply->rawHeader("X-Linked-ETag"))).captured();
}

void FileTransfer::compare(const QString& digest)
{
    if (!digest.isEmpty() && sha256OfFile(part_.dataPath()) != digest) {
        part_.discard();
        throw ModelDownloadError::wrongContent(
            tr("%1 sent another file than it announced. It has been removed. Try again later.")
                .arg(request_.url.host()));
    }
    request_.onCompared(digest);
}

QCoro::Task<FileLock> FileTransfer::takeLock()
{
    for (;;) {
        if (auto lock = part_.tryLock())
            co_return std::move(*lock);
        if (const auto note = part_.note()) {
            progress_.receivedBytes = part_.bytes();
            progress_.totalBytes = note->totalBytes;
        }
        co_await pause(lockPollInterval, tr("Waiting for another vantro to download the same file"));
    }
}

bool FileTransfer::isPartUsable() const
{
    const auto note = part_.note();
    return note && note->wanted == request_.sha1 && (note->totalBytes < 0 || part_.bytes() <= note->totalBytes);
}

bool FileTransfer::isPartComplete() const
{
    const auto note = part_.note();
    return note && note->totalBytes > 0 && part_.bytes() == note->totalBytes;
}

QCoro::Task<> FileTransfer::fetchAll()
{
    // The part may already be complete if a process was killed before renaming it.
    int reconnections = 0;
    bool hasStartedAnew = false;
    while (!isPartComplete()) {
        const qint64 before = part_.bytes();
        std::optional<ModelDownloadError> broken;
        try {
            if (co_await fetchOnce())
                co_return;
            part_.discard();
            if (std::exchange(hasStartedAnew, true))
                throw ModelDownloadError::connectionBroken(request_.url.host(), tr("the file keeps changing"));
        } catch (const ModelDownloadError& error) {
            const bool isWorthwhile = error.kind() == ModelDownloadError::Kind::connectionBroken &&
                                      part_.bytes() > before && reconnections < options_.reconnections;
            if (!isWorthwhile)
                throw;
            broken = error;
        }
        if (broken) {
            ++reconnections;
            co_await pause(options_.reconnectionPause, tr("Connection lost, trying again"));
        }
    }
}

QCoro::Task<bool> FileTransfer::fetchOnce()
{
    if (isStopped_)
        throw ModelDownloadError::cancelled();
    Fetch fetch(manager_, part_, request_, options_, [this](qint64 received, qint64 total) {
        progress_.receivedBytes = received;
        progress_.totalBytes = total;
        publish();
    });
    fetch_ = &fetch;
    co_await fetch.start();
    co_return !fetch.mustStartAnew();
}

QCoro::Task<> FileTransfer::pause(std::chrono::milliseconds duration, const QString& reason)
{
    publish(reason);
    QTimer timer;
    timer.setSingleShot(true);
    timer.start(duration);
    co_await timer;
    if (isStopped_)
        throw ModelDownloadError::cancelled();
}

void FileTransfer::publish(const std::optional<QString>& statusText)
{
    progress_.statusText = statusText;
    onProgress_(progress_);
}

} // namespace vantro
