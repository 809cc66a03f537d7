#pragma once

#include <QNetworkAccessManager>
#include <QThread>

#include <functional>
#include <memory>
#include <mutex>

namespace vantro {

/// A thread for requests through the system's proxies, so that the main thread never waits for proxy lookups,
/// certificates or data. Started by the first run().
class NetworkThread
{
public:
    using Work = std::function<void(QNetworkAccessManager&)>;

    explicit NetworkThread(const QString& name);
    /// Aborts outstanding requests.
    ~NetworkThread();
    NetworkThread(const NetworkThread&) = delete;
    NetworkThread& operator=(const NetworkThread&) = delete;

    /// Runs @p work on the thread, in order. Any thread.
    void run(Work work);

private:
    QNetworkAccessManager& manager();

    std::once_flag isStarted_;
    QThread thread_;
    QObject context_;                                ///< lives on the thread
    std::unique_ptr<QNetworkAccessManager> manager_; ///< created on the thread on first use
};

} // namespace vantro
