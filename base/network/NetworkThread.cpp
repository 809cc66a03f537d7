#include "base/network/NetworkThread.h"

#include "base/network/NetworkError.h"

#include <QHostAddress>
#include <QNetworkProxyFactory>
#include <QNetworkReply>

#include <utility>

namespace vantro {

namespace {

bool isThisMachine(const QString& host)
{
    return host == QLatin1String("localhost") || QHostAddress(host).isLoopback();
}

class SystemProxies final : public QNetworkProxyFactory
{
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override
    {
        // A server on this machine needs no proxy, nor the lookup, which asks libraries of the desktop.
        if (isThisMachine(query.peerHostName()))
            return {QNetworkProxy(QNetworkProxy::NoProxy)};
        return systemProxyForQuery(query);
    }
};

} // namespace

NetworkThread::NetworkThread(const QString& name)
{
    thread_.setObjectName(name);
    context_.moveToThread(&thread_);
}

NetworkThread::~NetworkThread()
{
    if (!thread_.isRunning())
        return;
    QMetaObject::invokeMethod(
        &context_, [this] { manager_.reset(); }, Qt::BlockingQueuedConnection);
    thread_.quit();
    thread_.wait();
}

void NetworkThread::run(Work work)
{
    std::call_once(isStarted_, [this] { thread_.start(); });
    QMetaObject::invokeMethod(&context_, [this, work = std::move(work)] { work(manager()); });
}

QNetworkAccessManager& NetworkThread::manager()
{
    if (!manager_) {
        manager_ = std::make_unique<QNetworkAccessManager>();
        manager_->setProxyFactory(new SystemProxies); // owned by the manager
        QObject::connect(manager_.get(), &QNetworkAccessManager::sslErrors, &NetworkError::keepCertificateProblem);
    }
    return *manager_;
}

} // namespace vantro
