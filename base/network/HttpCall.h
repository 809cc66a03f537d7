#pragma once

#include "base/network/HttpExchange.h"

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QPromise>

#include <exception>

namespace vantro {

/// One request and its answer, on the network thread. Deletes itself when finished.
class HttpCall final : public QObject
{
    Q_OBJECT
public:
    HttpCall(QNetworkAccessManager& manager, HttpRequest request, HttpExchange::Reader read,
             std::shared_ptr<QPromise<QString>> promise);
    ~HttpCall() override;

    void start();
    /// Ends the call with @p failure at any stage.
    void abort(const std::exception_ptr& failure);

private:
    void send(const QUrl& url);
    QNetworkReply* post(QNetworkRequest& request);
    void readHead();
    void readBody();
    void finished();
    [[nodiscard]] bool followRedirect();
    [[nodiscard]] std::exception_ptr transportFailure() const;
    void answer();
    void end(const std::exception_ptr& failure);
    void settle(const std::exception_ptr& failure);
    [[nodiscard]] int status() const;

    QNetworkAccessManager& manager_;
    HttpRequest request_;
    HttpExchange::Reader read_;
    std::shared_ptr<QPromise<QString>> promise_;
    QPointer<QNetworkReply> reply_; ///< owned by the manager
    QByteArray body_;
    int redirects_ = 0;
    bool hasEnded_ = false;
};

} // namespace vantro
