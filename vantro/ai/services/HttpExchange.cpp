#include "vantro/ai/services/HttpExchange.h"

#include "vantro/ai/services/HttpCall.h"
#include "vantro/ai/services/HttpError.h"

#include <QHash>
#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <qcoro/qcorofuture.h>

#include <optional>
#include <utility>

namespace vantro {

namespace {

class SystemProxies final : public QNetworkProxyFactory
{
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override { return systemProxyForQuery(query); }
};

} // namespace

/// The network's side. Everything but the constructor runs on its thread.
class HttpExchange::Network : public QObject
{
public:
    using Call = QPointer<HttpCall>;

    void preconnect(const QUrl& url)
    {
        // As connectToHost() does it, which would open a connection for HTTP/2 and keep its reply for ever.
        QUrl address;
        address.setScheme(QStringLiteral("preconnect-") + url.scheme());
        address.setHost(url.host());
        address.setPort(portOf(url));
        QNetworkReply* reply = manager().get(HttpCall::networkRequest(address));
        connect(reply, &QNetworkReply::finished, reply, &QObject::deleteLater);
        opening_[originOf(url)] = reply;
    }

    void carryOut(const std::shared_ptr<Call>& call, HttpRequest request, Reader read,
                  const std::shared_ptr<QPromise<QString>>& promise)
    {
        const QPointer<QNetworkReply> opening = opening_.value(originOf(request.url));
        // Owned by the manager: what is still under way ends with it.
        *call = new HttpCall(manager(), std::move(request), std::move(read), promise);
        // A request that meets a connection on its way would open a second one beside it.
        if (opening != nullptr && !opening->isFinished())
            connect(opening, &QNetworkReply::finished, call->data(), &HttpCall::start, Qt::QueuedConnection);
        else
            (*call)->start();
    }

    static void abort(const std::shared_ptr<Call>& call, const std::exception_ptr& failure)
    {
        if (*call)
            (*call)->abort(failure);
    }

    void close() { manager_.reset(); }

private:
    static int portOf(const QUrl& url) { return url.port(url.scheme() == QLatin1String("https") ? 443 : 80); }
    static QString originOf(const QUrl& url)
    {
        return QStringLiteral("%1://%2:%3").arg(url.scheme(), url.host()).arg(portOf(url));
    }

    QNetworkAccessManager& manager()
    {
        if (!manager_) {
            manager_ = std::make_unique<QNetworkAccessManager>();
            manager_->setProxyFactory(new SystemProxies); // owned by the manager
        }
        return *manager_;
    }

    std::unique_ptr<QNetworkAccessManager> manager_;
    QHash<QString, QPointer<QNetworkReply>> opening_; ///< by origin; the latest attempt
};

HttpExchange::HttpExchange(Clock& clock) : clock_(clock), network_(std::make_unique<Network>())
{
    thread_.setObjectName(QStringLiteral("vantro requests"));
    network_->moveToThread(&thread_);
    thread_.start();
}

HttpExchange::~HttpExchange()
{
    QMetaObject::invokeMethod(
        network_.get(), [this] { network_->close(); }, Qt::BlockingQueuedConnection);
    thread_.quit();
    thread_.wait();
}

void HttpExchange::preconnect(const QUrl& url)
{
    QMetaObject::invokeMethod(network_.get(), [this, url] { network_->preconnect(url); });
}

QCoro::Task<QString> HttpExchange::post(HttpRequest request, Reader read, std::stop_token stop)
{
    const auto promise = std::make_shared<QPromise<QString>>();
    promise->start();
    const QFuture<QString> answer = promise->future();
    const auto call = std::make_shared<Network::Call>();
    const QString host = request.url.host();
    const auto timeout = request.timeout;

    QMetaObject::invokeMethod(network_.get(), [network = network_.get(), call, request, read, promise] {
        network->carryOut(call, request, read, promise);
    });
    const auto abort = [network = network_.get(), call](const HttpError& error) {
        QMetaObject::invokeMethod(network,
                                  [call, failure = std::make_exception_ptr(error)] { Network::abort(call, failure); });
    };
    QObject waiting; // the end of its life takes the time limit back
    clock_.callAfter(timeout, &waiting, [abort, host, timeout] { abort(HttpError::timedOut(host, timeout)); });
    const std::stop_callback onStop(stop, [abort] { abort(HttpError::cancelled()); });
    co_return co_await answer;
}

} // namespace vantro
