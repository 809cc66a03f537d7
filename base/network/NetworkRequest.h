#pragma once

#include <QNetworkRequest>

/// What requests over HTTP have in common, whoever makes them. Any thread.
namespace vantro::network {

/// Without cookies; redirects are followed, but not from an encrypted address to an open one. Besides the system's
/// certificates it trusts those in the file that SSL_CERT_FILE names, a company's own authority for example; each
/// thread reads such a file once, for a bundle takes longer than many a request.
[[nodiscard]] QNetworkRequest request(const QUrl& url);

/// "https://example.org:443"
[[nodiscard]] QString originOf(const QUrl& url);
[[nodiscard]] int portOf(const QUrl& url);

} // namespace vantro::network
