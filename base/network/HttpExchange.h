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

/// HTTP and HTTPS requests on a thread of its own, with persistent connections, no cookies and no cache. A request with
/// a body or headers, which may hold a key, follows redirects only within its origin; one with a body only with status
/// 307 or 308. Main thread.
class HttpExchange
{
public:
    static constexpr qint64 largestAnswerBytes = qint64{8} * 1'048'576;

    /// Extracts the result from an answer. Runs on the network thread; send() rethrows its exceptions.
    using Reader = std::function<QString(const HttpAnswer&)>;

    explicit HttpExchange(Clock& clock) : clock_(clock) {}

    /// Opens a connection for the next request to that origin; best effort.
    void preconnect(const QUrl& url);
    /// Throws NetworkError when there is no answer, or whatever @p read throws.
    QCoro::Task<QString> send(HttpRequest request, Reader read, std::stop_token stop);

private:
    Clock& clock_;
    QHash<QString, QPointer<QNetworkReply>> opening_; ///< network thread; the latest attempt per origin
    NetworkThread network_{QStringLiteral("vantro requests")};
};

} // namespace vantro
