#include "base/network/HttpExchange.h"

#include "base/network/HttpCall.h"
#include "base/network/NetworkError.h"
#include "base/network/NetworkRequest.h"

#include <qcoro/qcorofuture.h>

#include <utility>

namespace vantro {

void HttpExchange::preconnect(const QUrl& url)
{
    // connectToHost() works the same way, but negotiates HTTP/2 and leaks its reply.
    QUrl address;
    address.setScheme(QStringLiteral("preconnect-") + url.scheme());
    address.setHost(url.host());
    address.setPort(network::portOf(url));
    network_.run([this, address, origin = network::originOf(url)](QNetworkAccessManager& manager) {
        QNetworkReply* reply = manager.get(network::request(address));
        QObject::connect(reply, &QNetworkReply::finished, reply, &QObject::deleteLater);
        opening_[origin] = reply;
    });
}

QCoro::Task<QString> HttpExchange::send(HttpRequest request, Reader read, std::stop_token stop)
{
    const auto promise = std::make_shared<QPromise<QString>>();
    promise->start();
    const QFuture<QString> answer = promise->future();
    const auto call = std::make_shared<QPointer<HttpCall>>(); // used on the network thread only
    const QString host = network::authorityOf(request.url);
    const auto timeout = request.timeout;

    network_.run([this, call, request, read, promise](QNetworkAccessManager& manager) {
        // Owned by the manager, which ends outstanding calls.
        *call = new HttpCall(manager, request, read, promise);
        const QPointer<QNetworkReply> opening = opening_.value(network::originOf(request.url));
        // A request sent while a connection is being opened would open a second one.
        if (opening != nullptr && !opening->isFinished())
            QObject::connect(opening, &QNetworkReply::finished, call->data(), &HttpCall::start, Qt::QueuedConnection);
        else
            (*call)->start();
    });
    const auto abort = [this, call](const NetworkError& error) {
        network_.run([call, failure = std::make_exception_ptr(error)](auto&) {
            if (*call)
                (*call)->abort(failure);
        });
    };
    QObject waiting; // cancels the timeout when it goes out of scope
    clock_.callAfter(timeout, &waiting, [abort, host, timeout] { abort(NetworkError::timedOut(host, timeout)); });
    const std::stop_callback onStop(stop, [abort] { abort(NetworkError::cancelled()); });
    co_return co_await answer;
}

} // namespace vantro
