#pragma once

#include <QNetworkRequest>

/// Common to all HTTP requests. Any thread.
namespace vantro::network {

/// A request without cookies that follows redirects except from https to http. Trusts the system's certificates and
/// those in the file named by SSL_CERT_FILE, which is read once per thread because parsing a bundle is slow.
[[nodiscard]] QNetworkRequest request(const QUrl& url);

/// "https://example.org:443"
[[nodiscard]] QString originOf(const QUrl& url);
/// "example.org", and "example.org:8000" where the address names the port.
[[nodiscard]] QString authorityOf(const QUrl& url);
[[nodiscard]] int portOf(const QUrl& url);

} // namespace vantro::network
