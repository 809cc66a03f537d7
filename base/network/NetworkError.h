#pragma once

#include "base/Error.h"

#include <QCoreApplication>
#include <QSslError>

#include <chrono>

class QNetworkReply;

namespace vantro {

/// Why a request has no answer. Descriptions contain host and port but no other part of the URL.
class NetworkError : public Error
{
    Q_DECLARE_TR_FUNCTIONS(NetworkError)
public:
    enum class Kind {
        unreachable, ///< no such name, no connection, no network
        cutOff,
        notTrusted, ///< the server's certificate
        redirected, ///< in a loop, or from https to http
        timedOut,
        tooLarge,
        notHttp, ///< the server does not speak HTTP
        cancelled,
    };

    /// @p reply must have finished with an error.
    static NetworkError of(const QNetworkReply& reply);
    /// Slot of the access manager: records the certificate problem for of(), because Qt's own error omits it.
    static void keepCertificateProblem(QNetworkReply* reply, const QList<QSslError>& errors);

    static NetworkError unreachable(const QString& host, const QString& reason);
    static NetworkError cutOff(const QString& host);
    /// It closed the connection without a word. @p isPlain: the request was not encrypted.
    static NetworkError mute(const QString& host, bool isPlain);
    static NetworkError timedOut(const QString& host, std::chrono::milliseconds timeout);
    static NetworkError tooLarge(const QString& host, qint64 limitBytes);
    static NetworkError notHttp(const QString& host);
    static NetworkError cancelled();

    [[nodiscard]] Kind kind() const { return kind_; }

    /// For a reason that is put in parentheses within a sentence.
    static QString withoutFullStop(QString sentence);

private:
    NetworkError(Kind kind, const QString& description) : Error(description), kind_(kind) {}

    Kind kind_;
};

} // namespace vantro
