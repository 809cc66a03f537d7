#include "base/network/NetworkRequest.h"

#include <QSslConfiguration>

#include <utility>

namespace vantro {

namespace {

constexpr int mostRedirectsFollowed = 10;

/// A no-op without SSL_CERT_FILE, so that Qt loads the system's certificates only on demand.
void trustUsersAuthorities(QNetworkRequest& request)
{
    const QString file = qEnvironmentVariable("SSL_CERT_FILE");
    if (file.isEmpty())
        return;
    thread_local QString knownFile;
    thread_local QSslConfiguration known;
    if (std::exchange(knownFile, file) != file) {
        known = QSslConfiguration::defaultConfiguration();
        known.addCaCertificates(file);
    }
    request.setSslConfiguration(known);
}

} // namespace

QNetworkRequest network::request(const QUrl& url)
{
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("vantro/" VANTRO_VERSION));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirectsFollowed);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    // HTTP/2 gains nothing for one long stream or one request at a time.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    trustUsersAuthorities(request);
    return request;
}

int network::portOf(const QUrl& url)
{
    return url.port(url.scheme() == QLatin1String("https") ? 443 : 80);
}

QString network::authorityOf(const QUrl& url)
{
    return url.port() < 0 ? url.host() : QStringLiteral("%1:%2").arg(url.host()).arg(url.port());
}

QString network::originOf(const QUrl& url)
{
    return QStringLiteral("%1://%2:%3").arg(url.scheme(), url.host()).arg(portOf(url));
}

} // namespace vantro
