#pragma once

#include "base/Clock.h"
#include "vantro/ai/services/HttpMessages.h"

#include <QFuture>
#include <QThread>
#include <qcoro/qcorotask.h>

#include <functional>
#include <memory>
#include <stop_token>

namespace vantro {

/// Requests over HTTP and HTTPS, on a thread of its own: the main thread neither parses an answer nor waits for a proxy
/// or a certificate. Connections stay open for the next request.
///
/// System proxies are used; certificates are checked against the system's and those in the file that SSL_CERT_FILE
/// names. A redirect is followed only to the same origin, and only where it means the same request again. No cookies,
/// no cache. Main thread.
class HttpExchange
{
public:
    static constexpr qint64 largestAnswerBytes = 8 * 1'048'576;

    /// Makes of an answer what is wanted of it. Runs on the network's thread; what it throws is thrown by post().
    using Reader = std::function<QString(const HttpAnswer&)>;

    explicit HttpExchange(Clock& clock);
    /// Ends what is under way.
    ~HttpExchange();
    HttpExchange(const HttpExchange&) = delete;
    HttpExchange& operator=(const HttpExchange&) = delete;

    /// Opens a connection that the next request there will use; nobody is told when that fails.
    void preconnect(const QUrl& url);
    /// Throws HttpError when there is no answer, whatever @p read throws when there is one.
    QCoro::Task<QString> post(HttpRequest request, Reader read, std::stop_token stop);

private:
    class Network;

    Clock& clock_;
    QThread thread_;
    std::unique_ptr<Network> network_; ///< lives on the thread
};

} // namespace vantro
