#pragma once

#include "base/Error.h"

#include <QCoreApplication>

#include <chrono>

namespace vantro {

/// Why there is no answer to a request. Descriptions name the host and nothing else of an address.
class HttpError : public Error
{
    Q_DECLARE_TR_FUNCTIONS(HttpError)
public:
    enum class Kind {
        unreachable, ///< no such name, no connection, no trust, cut off
        timedOut,
        tooLarge,
        notHttp, ///< whatever answered does not speak HTTP
        cancelled,
    };

    static HttpError unreachable(const QString& host, const QString& reason);
    static HttpError cutOff(const QString& host);
    static HttpError notTrusted(const QString& host, const QString& reason);
    static HttpError timedOut(const QString& host, std::chrono::milliseconds timeout);
    static HttpError tooLarge(const QString& host, qint64 limitBytes);
    static HttpError notHttp(const QString& host);
    static HttpError cancelled();

    [[nodiscard]] Kind kind() const { return kind_; }

private:
    HttpError(Kind kind, const QString& description) : Error(description), kind_(kind) {}

    Kind kind_;
};

} // namespace vantro
