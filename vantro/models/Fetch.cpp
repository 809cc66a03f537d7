#include "vantro/models/Fetch.h"

#include "base/network/NetworkError.h"
#include "base/network/NetworkRequest.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QStorageInfo>

#include <utility>

namespace vantro {

namespace {

constexpr qint64 mebibyte = 1'048'576;
/// Still in the processor's cache when written: chunks of one MiB take a third longer.
constexpr qint64 chunkBytes = mebibyte / 16;
/// Buffered in memory while the disk is busy.
constexpr qint64 readAheadBytes = 4 * mebibyte;
/// Written before returning to the event loop.
constexpr qint64 turnBytes = 8 * mebibyte;
constexpr int stallChecks = 4;

const QByteArray contentLength = QByteArrayLiteral("Content-Length");
const QByteArray contentRange = QByteArrayLiteral("Content-Range");
const QByteArray entityTag = QByteArrayLiteral("ETag");
const QByteArray lastModified = QByteArrayLiteral("Last-Modified");

} // namespace

Fetch::Fetch(QNetworkAccessManager& manager, PartFile& part, const TransferRequest& request,
             const TransferOptions& options, OnBytes onBytes)
    : manager_(manager)
    , part_(part)
    , request_(request)
    , options_(options)
    , onBytes_(std::move(onBytes))
    , buffer_(chunkBytes)
{
    promise_.start();
}

Fetch::~Fetch()
{
    delete reply_;
}

QFuture<void> Fetch::start()
{
    reply_ = manager_.get(networkRequest());
    reply_->setReadBufferSize(readAheadBytes);
    lastHeard_.start();
    connect(reply_, &QNetworkReply::metaDataChanged, this, [this] { guarded([this] { readHead(); }); });
    connect(reply_, &QNetworkReply::readyRead, this, [this] { guarded([this] { pump(); }); });
    connect(reply_, &QNetworkReply::finished, this, [this] { guarded([this] { replyFinished(); }); });
    connect(&stallTimer_, &QTimer::timeout, this, [this] { guarded([this] { checkStall(); }); });
    stallTimer_.start(options_.stallTimeout / stallChecks);
    return promise_.future();
}

QNetworkRequest Fetch::networkRequest() const
{
    QNetworkRequest request = network::request(request_.url);
    request.setRawHeader("Accept-Encoding", "identity"); // sizes and offsets must be those of the file
    if (const qint64 have = part_.bytes(); have > 0 && !request_.url.isLocalFile()) {
        request.setRawHeader("Range", QByteArray("bytes=") + QByteArray::number(have) + '-');
        if (const QString validator = part_.note()->validator(); !validator.isEmpty())
            request.setRawHeader("If-Range", validator.toUtf8());
    }
    return request;
}

void Fetch::stop()
{
    end(std::make_exception_ptr(ModelDownloadError::cancelled()));
}

void Fetch::guarded(const std::function<void()>& step)
{
    try {
        step();
    } catch (...) {
        end(std::current_exception());
    }
}

void Fetch::end(std::exception_ptr failure)
{
    if (reply_ == nullptr)
        return;
    stallTimer_.stop();
    QNetworkReply* reply = std::exchange(reply_, nullptr);
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
    if (failure)
        promise_.setException(std::move(failure));
    promise_.finish();
}

int Fetch::status() const
{
    return reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

/// After a redirect, Qt sometimes has the new value behind that of the redirect.
QByteArray Fetch::header(const QByteArray& name) const
{
    const QByteArray value = reply_->rawHeader(name);
    const QByteArray former = redirect_.value(name) + ", ";
    return redirect_.contains(name) && value.startsWith(former) ? value.mid(former.size()) : value;
}

void Fetch::noteRedirect()
{
    for (const QByteArray& name : {contentLength, contentRange, entityTag, lastModified}) {
        if (reply_->hasRawHeader(name))
            redirect_.insert(name, reply_->rawHeader(name));
    }
}

QString Fetch::host() const
{
    const QUrl url = reply_ != nullptr ? reply_->url() : request_.url;
    return url.isLocalFile() ? url.adjusted(QUrl::RemoveFilename).toLocalFile() : url.host();
}

void Fetch::readHead()
{
    lastHeard_.restart();
    if (isAccepted_)
        return;
    if (status() >= 300 && status() < 400)
        noteRedirect();
    else if (reply_->url().isLocalFile() || status() == 200)
        acceptWhole();
    else if (status() == 206)
        acceptRest();
    else if (status() == 416)
        mustStartAnew_ = true;
    if (mustStartAnew_)
        end(nullptr);
}

PartNote Fetch::noteFromHead() const
{
    const QString etag = QString::fromUtf8(header(entityTag));
    return {request_.sha1, etag.startsWith(QLatin1String("W/")) ? QString() : etag,
            QString::fromUtf8(header(lastModified)), totalBytes_};
}

void Fetch::acceptWhole()
{
    bool isKnown = false;
    const qint64 length = reply_->url().isLocalFile()
                              ? reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong(&isKnown)
                              : header(contentLength).trimmed().toLongLong(&isKnown);
    totalBytes_ = isKnown ? length : -1;
    receivedBytes_ = 0;
    // Truncating an old part frees its space before checkSpace().
    part_.begin(noteFromHead());
    isAccepted_ = true;
    checkSpace();
}

void Fetch::acceptRest()
{
    static const QRegularExpression form(QStringLiteral("^bytes (\\d+)-(\\d+)/(\\d+)$"));
    const auto range = form.match(QString::fromUtf8(header(contentRange)).trimmed());
    const qint64 have = part_.bytes();
    const qint64 known = part_.note()->totalBytes;
    const qint64 total = range.captured(3).toLongLong();
    if (!range.hasMatch() || range.captured(1).toLongLong() != have || (known >= 0 && known != total)) {
        mustStartAnew_ = true;
        return;
    }
    totalBytes_ = total;
    receivedBytes_ = have;
    part_.resume();
    isAccepted_ = true;
    checkSpace();
}

void Fetch::checkSpace() const
{
    const QString folder = QFileInfo(request_.destination).absolutePath();
    const qint64 needed = totalBytes_ - receivedBytes_;
    const qint64 available = QStorageInfo(folder).bytesAvailable(); // negative if unknown
    if (totalBytes_ > 0 && available >= 0 && available < needed)
        throw ModelDownloadError::notEnoughSpace(folder, needed, available);
}

void Fetch::pump()
{
    // Ignore the body of an error or a redirect.
    if (!isAccepted_)
        return;
    const qint64 before = receivedBytes_;
    while (receivedBytes_ - before < turnBytes && writeSome() > 0) {
    }
    if (receivedBytes_ == before)
        return;
    lastHeard_.restart();
    onBytes_(receivedBytes_, totalBytes_);
    if (reply_ != nullptr && reply_->bytesAvailable() > 0)
        QMetaObject::invokeMethod(
            this, [this] { guarded([this] { isFinished_ ? replyFinished() : pump(); }); }, Qt::QueuedConnection);
}

qint64 Fetch::writeSome()
{
    const qint64 count = reply_->read(buffer_.data(), chunkBytes);
    if (count <= 0)
        return count;
    if (totalBytes_ >= 0 && receivedBytes_ + count > totalBytes_)
        throw ModelDownloadError::refusedByServer(host(), status(), request_.url.fileName());
    part_.append(buffer_.data(), count);
    receivedBytes_ += count;
    return count;
}

void Fetch::replyFinished()
{
    if (reply_ == nullptr)
        return;
    isFinished_ = true;
    pump();
    if (isAccepted_ && reply_->bytesAvailable() > 0)
        return; // pump() calls this again
    if (reply_->error() != QNetworkReply::NoError)
        throw replyError();
    if (!isAccepted_)
        throw ModelDownloadError::refusedByServer(host(), status(), request_.url.fileName());
    if (receivedBytes_ < totalBytes_)
        throw brokenOff();
    end(nullptr);
}

ModelDownloadError Fetch::brokenOff() const
{
    return ModelDownloadError::connectionBroken(
        host(), tr("it ended after %1 of %2").arg(sizeText(receivedBytes_), sizeText(totalBytes_)));
}

void Fetch::checkStall()
{
    if (std::chrono::milliseconds(lastHeard_.elapsed()) < options_.stallTimeout)
        return;
    const QString reason = tr("no data for %1 s").arg(static_cast<double>(options_.stallTimeout.count()) / 1000);
    throw isAccepted_ ? ModelDownloadError::connectionBroken(host(), reason)
                      : ModelDownloadError(NetworkError::unreachable(host(), reason));
}

ModelDownloadError Fetch::replyError() const
{
    if (status() >= 400)
        return ModelDownloadError::refusedByServer(host(), status(), request_.url.fileName());
    if (reply_->url().isLocalFile())
        return ModelDownloadError::refusedByServer(host(), 0, request_.url.fileName());
    if (isAccepted_)
        return totalBytes_ < 0 ? ModelDownloadError::connectionBroken(host(), reply_->errorString()) : brokenOff();
    return ModelDownloadError(NetworkError::of(*reply_));
}

} // namespace vantro
