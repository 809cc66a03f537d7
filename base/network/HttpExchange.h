#pragma once

#include "base/Clock.h"
#include "base/network/HttpMessages.h"
#include "base/network/NetworkThread.h"

#include <QHash>
#include <QNetworkReply>
#include <QPointer>
#include <qcoro/qcorotask.h>

#include <functional>
#include <stop_token>

namespace vantro {

/// Requests over HTTP and HTTPS, on a thread of its own. Connections stay open for the next request.
///
/// A redirect of a request with a body is followed only to the same origin, and only where it means the same request
/// again. No cookies, no cache. Main thread.
class HttpExchange
{
public:
    static constexpr qint64 largestAnswerBytes = 8 * 1'048'576;

    /// Makes of an answer what is wanted of it. Runs on the network's thread; what it throws is thrown by send().
    using Reader = std::function<QString(const HttpAnswer&)>;

    explicit HttpExchange(Clock& clock) : clock_(clock) {}

    /// Opens a connection that the next request there will use; nobody is told when that fails.
    void preconnect(const QUrl& url);
    /// Throws NetworkError when there is no answer, whatever @p read throws when there is one.
    QCoro::Task<QString> send(HttpRequest request, Reader read, std::stop_token stop);

private:
    Clock& clock_;
    QHash<QString, QPointer<QNetworkReply>> opening_; ///< network thread: the latest attempt for each origin
    NetworkThread network_{QStringLiteral("vantro requests")};
};

} // namespace vantro
