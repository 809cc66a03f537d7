#include "base/network/UsersAuthorities.h"

#include <QSslConfiguration>

#include <utility>

namespace vantro {

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

} // namespace vantro
