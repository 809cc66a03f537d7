#include "vantro/ai/services/HttpError.h"

#include <QLocale>

namespace vantro {

namespace {

QString withoutFullStop(QString sentence)
{
    while (sentence.endsWith(QLatin1Char('.')))
        sentence.chop(1);
    return sentence;
}

} // namespace

HttpError HttpError::unreachable(const QString& host, const QString& reason)
{
    return {Kind::unreachable, tr("%1 cannot be reached (%2). Check the network connection, the proxy and the "
                                  "provider's address.")
                                   .arg(host, withoutFullStop(reason))};
}

HttpError HttpError::cutOff(const QString& host)
{
    return {Kind::unreachable,
            tr("The connection to %1 broke off before the answer was complete. Try again.").arg(host)};
}

HttpError HttpError::notTrusted(const QString& host, const QString& reason)
{
    return {Kind::unreachable, tr("The encrypted connection to %1 cannot be trusted (%2). Check this computer's clock, "
                                  "or install the certificate of your own server.")
                                   .arg(host, withoutFullStop(reason))};
}

HttpError HttpError::timedOut(const QString& host, std::chrono::milliseconds timeout)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(timeout).count();
    return {Kind::timedOut, tr("%1 has not answered within %2 seconds.").arg(host).arg(seconds)};
}

HttpError HttpError::tooLarge(const QString& host, qint64 limitBytes)
{
    const QString limit = QLocale().formattedDataSize(limitBytes, 0, QLocale::DataSizeIecFormat);
    return {Kind::tooLarge, tr("The answer of %1 is larger than %2.").arg(host, limit)};
}

HttpError HttpError::notHttp(const QString& host)
{
    return {Kind::notHttp, tr("What answers at %1 is no web server.").arg(host)};
}

HttpError HttpError::cancelled()
{
    return {Kind::cancelled, tr("The request was cancelled.")};
}

} // namespace vantro
