#pragma once

#include "base/Error.h"

#include <QCoreApplication>
#include <QSslError>

#include <chrono>

class QNetworkReply;

namespace vantro {

/// Why there is no answer to a request. Descriptions name the host and nothing else of an address.
class NetworkError : public Error
{
    Q_DECLARE_TR_FUNCTIONS(NetworkError)
public:
    enum class Kind {
        unreachable, ///< no such name, no connection, no network
        cutOff,
        notTrusted, ///< the server's certificate
        redirected, ///< in a loop, or from an encrypted to an open address
        timedOut,
        tooLarge,
        notHttp, ///< whatever answered does not speak HTTP
        cancelled,
    };

    /// Why @p reply, which has ended with an error, brought no answer.
    static NetworkError of(const QNetworkReply& reply);
    /// Has of() tell what is wrong with a certificate; Qt's own error does not. Slot of the access manager.
    static void keepCertificateProblem(QNetworkReply* reply, const QList<QSslError>& errors);

    static NetworkError unreachable(const QString& host, const QString& reason);
    static NetworkError cutOff(const QString& host);
    static NetworkError timedOut(const QString& host, std::chrono::milliseconds timeout);
    static NetworkError tooLarge(const QString& host, qint64 limitBytes);
    static NetworkError notHttp(const QString& host);
    static NetworkError cancelled();

    [[nodiscard]] Kind kind() const { return kind_; }

    /// A reason that goes into brackets in the middle of a sentence.
    static QString withoutFullStop(QString sentence);

private:
    NetworkError(Kind kind, const QString& description) : Error(description), kind_(kind) {}

    Kind kind_;
};

} // namespace vantro
