#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <chrono>
#include <utility>
#include <vector>

namespace vantro {

/// A POST if there is a body, else a GET. The URL and the headers may contain a key and must never be logged.
struct HttpRequest
{
    QUrl url;
    std::vector<std::pair<QByteArray, QByteArray>> headers;
    QByteArray body;
    /// Until the last byte of the answer.
    std::chrono::milliseconds timeout{0};
};

struct HttpAnswer
{
    int status = 0;
    /// Where a redirect leads that was not followed, without its query.
    QString redirectedTo;
    QByteArray body;
    QString host; ///< as messages name it
    /// Whether the server said how long the body is. Where it did not, a connection that ended too early may look like
    /// the end of the body.
    bool hasDeclaredLength = false;
};

} // namespace vantro
