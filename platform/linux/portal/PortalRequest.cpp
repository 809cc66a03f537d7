#include "platform/linux/portal/PortalRequest.h"

#include "base/Logger.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <utility>

namespace vantro {

namespace {

/// The portal is started by the first call, at login together with everything else.
constexpr int patienceMs = 120'000;

/// Unique within this process, as the portal asks for.
QString nextToken()
{
    static int last = 0;
    return QStringLiteral("vantro%1").arg(++last);
}

/// Where the portal will answer the request with this token.
QString requestPath(const QString& token)
{
    const QString sender =
        QDBusConnection::sessionBus().baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
}

} // namespace

PortalRequest::PortalRequest(QObject& parent, Answered answered) : QObject(&parent), answered_(std::move(answered)) {}

void PortalRequest::send(QObject& parent, const Call& call, Answered answered)
{
    auto* const request = new PortalRequest(parent, std::move(answered));
    const QString token = nextToken();
    QDBusConnection bus = QDBusConnection::sessionBus();
    // Before the call: the answer may be faster than its return.
    bus.connect(service(), requestPath(token), QStringLiteral("org.freedesktop.portal.Request"),
                QStringLiteral("Response"), request, SLOT(respond(uint, QVariantMap)));
    QVariantMap options = call.options;
    options.insert(QStringLiteral("handle_token"), token);
    QDBusMessage message = QDBusMessage::createMethodCall(
        service(), path(), QStringLiteral("org.freedesktop.portal.") + call.interface, call.method);
    message.setArguments(call.arguments + QVariantList{options});
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(message, patienceMs), request);
    connect(watcher, &QDBusPendingCallWatcher::finished, request, [request, watcher, method = call.method] {
        if (!watcher->isError())
            return;
        Logger("PortalRequest").info(QStringLiteral("%1: %2").arg(method, watcher->error().message()));
        request->finish(std::nullopt);
    });
}

void PortalRequest::respond(uint code, const QVariantMap& results)
{
    finish(code == 0 ? std::optional(results) : std::nullopt);
}

void PortalRequest::finish(const std::optional<QVariantMap>& results)
{
    deleteLater();
    if (const auto answered = std::exchange(answered_, nullptr))
        answered(results);
}

} // namespace vantro
