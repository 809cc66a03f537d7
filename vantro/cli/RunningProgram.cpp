#include "vantro/cli/RunningProgram.h"

#include "vantro/app/ControlService.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QJsonDocument>

namespace vantro {

std::optional<QJsonObject> runningProgramStatus()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    // Calling an unregistered name could make the bus start the program.
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(ControlService::busName()))
        return std::nullopt;
    const QDBusMessage reply =
        bus.call(QDBusMessage::createMethodCall(ControlService::busName(), ControlService::objectPath(),
                                                ControlService::interfaceName(), QStringLiteral("Status")));
    if (reply.type() == QDBusMessage::ErrorMessage)
        return std::nullopt;
    return QJsonDocument::fromJson(reply.arguments().value(0).toString().toUtf8()).object();
}

} // namespace vantro
