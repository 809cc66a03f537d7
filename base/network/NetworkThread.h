#pragma once

#include <QNetworkAccessManager>
#include <QThread>

#include <functional>
#include <memory>
#include <mutex>

namespace vantro {

/// A thread for requests, which the system's proxies are used for: the main thread neither waits for a proxy or a
/// certificate nor reads what comes. It starts with the first work.
class NetworkThread
{
public:
    using Work = std::function<void(QNetworkAccessManager&)>;

    explicit NetworkThread(const QString& name);
    /// Ends what is under way.
    ~NetworkThread();
    NetworkThread(const NetworkThread&) = delete;
    NetworkThread& operator=(const NetworkThread&) = delete;

    /// Does @p work on the thread, after what it was given before. Any thread.
    void run(Work work);

private:
    QNetworkAccessManager& manager();

    std::once_flag isStarted_;
    QThread thread_;
    QObject context_;                                ///< lives on the thread
    std::unique_ptr<QNetworkAccessManager> manager_; ///< made on the thread when it is first needed
};

} // namespace vantro
