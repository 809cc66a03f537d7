#include "base/network/NetworkError.h"

#include "base/network/NetworkRequest.h"

#include <QLocale>
#include <QNetworkReply>

namespace vantro {

namespace {

/// In the words of OpenSSL, which took the answer for TLS.
bool speaksNoTls(const QString& reason)
{
    return reason.contains(QLatin1String("wrong version number")) ||
           reason.contains(QLatin1String("unknown protocol")) ||
           reason.contains(QLatin1String("packet length too long")) || reason.contains(QLatin1String("record layer"));
}

constexpr char certificateProblem[] = "certificateProblem";

} // namespace

QString NetworkError::withoutFullStop(QString sentence)
{
    while (sentence.endsWith(QLatin1Char('.')))
        sentence.chop(1);
    return sentence;
}

void NetworkError::keepCertificateProblem(QNetworkReply* reply, const QList<QSslError>& errors)
{
    if (!errors.isEmpty())
        reply->setProperty(certificateProblem, errors.first().errorString());
}

NetworkError NetworkError::of(const QNetworkReply& reply)
{
    const QString host = network::authorityOf(reply.url());
    const QString reason = withoutFullStop(reply.errorString());
    switch (reply.error()) {
    case QNetworkReply::SslHandshakeFailedError: {
        const QVariant problem = reply.property(certificateProblem);
        if (problem.isNull() && speaksNoTls(reason))
            return {Kind::notTrusted, tr("%1 does not speak https. Use another port, or an address that begins with "
                                         "http:// if the server is yours.")
                                          .arg(host)};
        return {Kind::notTrusted, tr("The encrypted connection to %1 cannot be trusted (%2). Check this computer's "
                                     "clock, or install the certificate of your own server.")
                                      .arg(host, problem.isNull() ? reason : withoutFullStop(problem.toString()))};
    }
    case QNetworkReply::TooManyRedirectsError:
    case QNetworkReply::InsecureRedirectError:
        return {Kind::redirected, tr("%1 redirects in a loop or to an insecure address (%2). Check the address.")
                                      .arg(network::authorityOf(reply.request().url()), reason)};
    case QNetworkReply::RemoteHostClosedError:
        return cutOff(host);
    case QNetworkReply::ProtocolFailure:
    case QNetworkReply::ProtocolUnknownError:
    case QNetworkReply::ProtocolInvalidOperationError:
        return notHttp(host);
    default:
        return unreachable(host, reason);
    }
}

NetworkError NetworkError::unreachable(const QString& host, const QString& reason)
{
    return {Kind::unreachable, tr("%1 cannot be reached (%2). Check the network connection, the proxy and the "
                                  "address.")
                                   .arg(host, withoutFullStop(reason))};
}

NetworkError NetworkError::cutOff(const QString& host)
{
    return {Kind::cutOff, tr("The connection to %1 was lost before the response was complete. Try again.").arg(host)};
}

NetworkError NetworkError::mute(const QString& host, bool isPlain)
{
    const QString what = tr("%1 closed the connection without an answer.").arg(host);
    return {Kind::cutOff, what + QLatin1Char(' ') +
                              (isPlain ? tr("If it expects encryption, begin the address with https://; otherwise try "
                                            "again.")
                                       : tr("Try again."))};
}

NetworkError NetworkError::timedOut(const QString& host, std::chrono::milliseconds timeout)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(timeout).count();
    return {Kind::timedOut, tr("%1 has not responded within %2 seconds.").arg(host).arg(seconds)};
}

NetworkError NetworkError::tooLarge(const QString& host, qint64 limitBytes)
{
    const QString limit = QLocale().formattedDataSize(limitBytes, 0, QLocale::DataSizeIecFormat);
    return {Kind::tooLarge, tr("The response from %1 is larger than %2.").arg(host, limit)};
}

NetworkError NetworkError::notHttp(const QString& host)
{
    return {Kind::notHttp, tr("%1 is not a web server. Check the address.").arg(host)};
}

NetworkError NetworkError::cancelled()
{
    return {Kind::cancelled, tr("The request was cancelled.")};
}

} // namespace vantro
