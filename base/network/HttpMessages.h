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
};

} // namespace vantro
