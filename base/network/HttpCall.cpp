#include "base/network/HttpCall.h"

#include "base/network/NetworkError.h"
#include "base/network/NetworkRequest.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

namespace vantro {

namespace {

constexpr int mostRedirects = 3;
constexpr int temporaryRedirect = 307;
constexpr int permanentRedirect = 308;

/// A request body that can be read only once. Otherwise Qt resends the request up to four times when the server closes
/// the connection without an answer, and a provider may charge for each attempt.
class OneTimeBody final : public QIODevice
{
public:
    OneTimeBody(QByteArray body, QObject* parent) : QIODevice(parent), body_(std::move(body)) { open(ReadOnly); }

    [[nodiscard]] bool isSequential() const override { return true; }
    [[nodiscard]] bool atEnd() const override { return bytesAvailable() == 0; }
    [[nodiscard]] qint64 bytesAvailable() const override
    {
        return body_.size() - position_ + QIODevice::bytesAvailable();
    }
    bool reset() override { return false; }

protected:
    qint64 readData(char* data, qint64 maxBytes) override
    {
        const qint64 count = std::min<qint64>(maxBytes, body_.size() - position_);
        if (count == 0)
            return -1;
        std::memcpy(data, body_.constData() + position_, static_cast<std::size_t>(count));
        position_ += count;
        return count;
    }
    qint64 writeData(const char* /*data*/, qint64 /*maxBytes*/) override { return -1; }

private:
    QByteArray body_;
    qint64 position_ = 0;
};

} // namespace

HttpCall::HttpCall(QNetworkAccessManager& manager, HttpRequest request, HttpExchange::Reader read,
                   std::shared_ptr<QPromise<QString>> promise)
    : QObject(&manager)
    , manager_(manager)
    , request_(std::move(request))
    , read_(std::move(read))
    , promise_(std::move(promise))
{
}

HttpCall::~HttpCall()
{
    settle(std::make_exception_ptr(NetworkError::cancelled()));
}

void HttpCall::start()
{
    if (!hasEnded_)
        send(request_.url);
}

void HttpCall::abort(const std::exception_ptr& failure)
{
    end(failure);
}

void HttpCall::send(const QUrl& url)
{
    QNetworkRequest request = network::request(url);
    for (const auto& [name, value] : request_.headers)
        request.setRawHeader(name, value);
    // Qt would take a key in the headers to wherever a redirect leads.
    if (!request_.headers.empty())
        request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    body_.clear();
    reply_ = request_.body.isEmpty() ? manager_.get(request) : post(request);
    connect(reply_, &QNetworkReply::metaDataChanged, this, &HttpCall::readHead);
    connect(reply_, &QNetworkReply::readyRead, this, &HttpCall::readBody);
    connect(reply_, &QNetworkReply::finished, this, &HttpCall::finished);
}

QNetworkReply* HttpCall::post(QNetworkRequest& request)
{
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    // Without both, Qt buffers a copy that it can resend.
    request.setHeader(QNetworkRequest::ContentLengthHeader, request_.body.size());
    request.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
    return manager_.post(request, new OneTimeBody(request_.body, this));
}

int HttpCall::status() const
{
    return reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

void HttpCall::readHead()
{
    if (reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong() > HttpExchange::largestAnswerBytes)
        abort(std::make_exception_ptr(
            NetworkError::tooLarge(network::authorityOf(request_.url), HttpExchange::largestAnswerBytes)));
}

void HttpCall::readBody()
{
    body_ += reply_->readAll();
    if (body_.size() > HttpExchange::largestAnswerBytes)
        abort(std::make_exception_ptr(
            NetworkError::tooLarge(network::authorityOf(request_.url), HttpExchange::largestAnswerBytes)));
}

void HttpCall::finished()
{
    readBody();
    if (hasEnded_ || followRedirect())
        return;
    if (const auto failure = transportFailure())
        end(failure);
    else
        answer();
}

bool HttpCall::followRedirect()
{
    const QUrl location = reply_->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    const QUrl target = request_.url.resolved(location);
    // The other statuses turn a POST into a GET.
    const bool meansTheSameRequest =
        request_.body.isEmpty() || status() == temporaryRedirect || status() == permanentRedirect;
    if (location.isEmpty() || !meansTheSameRequest || redirects_ >= mostRedirects ||
        network::originOf(target) != network::originOf(request_.url))
        return false;
    ++redirects_;
    reply_->disconnect(this);
    reply_->deleteLater();
    send(target);
    return true;
}

std::exception_ptr HttpCall::transportFailure() const
{
    const auto error = reply_->error();
    const QString host = network::authorityOf(request_.url);
    // Without a byte of an answer: what a server does that expects to be spoken to in TLS.
    const bool isMute =
        status() == 0 && (error == QNetworkReply::ContentReSendError || error == QNetworkReply::RemoteHostClosedError);
    if (isMute)
        return std::make_exception_ptr(NetworkError::mute(host, request_.url.scheme() == QLatin1String("http")));
    // Qt reports HTTP error statuses as errors too; those are left to the reader.
    const bool isServersWord = status() != 0 && error >= QNetworkReply::ContentAccessDenied;
    if (error == QNetworkReply::NoError || (isServersWord && error != QNetworkReply::ProtocolFailure))
        return status() != 0 ? nullptr : std::make_exception_ptr(NetworkError::notHttp(host));
    return std::make_exception_ptr(status() != 0 ? NetworkError::cutOff(host) : NetworkError::of(*reply_));
}

void HttpCall::answer()
{
    const QUrl target = reply_->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    const HttpAnswer answer{.status = status(),
                            .redirectedTo = target.isEmpty() ? QString()
                                                             : request_.url.resolved(target).toString(
                                                                   QUrl::RemoveQuery | QUrl::RemoveUserInfo),
                            .body = std::exchange(body_, {}),
                            .host = network::authorityOf(request_.url),
                            .hasDeclaredLength = reply_->hasRawHeader("Content-Length")};
    try {
        promise_->addResult(read_(answer));
        end(nullptr);
    } catch (...) {
        end(std::current_exception());
    }
}

void HttpCall::end(const std::exception_ptr& failure)
{
    if (hasEnded_)
        return;
    settle(failure);
    if (reply_ != nullptr) {
        reply_->disconnect(this);
        reply_->abort();
        reply_->deleteLater();
    }
    deleteLater();
}

void HttpCall::settle(const std::exception_ptr& failure)
{
    if (std::exchange(hasEnded_, true))
        return;
    if (failure)
        promise_->setException(failure);
    promise_->finish();
}

} // namespace vantro
