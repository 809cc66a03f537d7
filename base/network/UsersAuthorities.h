#pragma once

#include <QNetworkRequest>

namespace vantro {

/// Has a request trust the certificates in the file that SSL_CERT_FILE names, a company's own authority for
/// example, besides the system's. Does nothing where it names none, so that Qt reads the system's certificates only
/// when they are needed. Any thread; each reads a file once, for a bundle takes longer than many a request.
void trustUsersAuthorities(QNetworkRequest& request);

} // namespace vantro
