#pragma once

#include <QByteArray>
#include <QUrl>

#include <chrono>
#include <utility>
#include <vector>

namespace vantro {

/// A body to be posted; without one the address is only read. The address and the headers may hold a key: neither is
/// ever logged.
struct HttpRequest
{
    QUrl url;
    std::vector<std::pair<QByteArray, QByteArray>> headers;
    QByteArray body;
    /// From the call to the last byte of the answer.
    std::chrono::milliseconds timeout{0};
};

struct HttpAnswer
{
    int status = 0;
    QByteArray body;
};

} // namespace vantro
