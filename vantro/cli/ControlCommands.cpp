#include "vantro/cli/ControlCommands.h"

#include "vantro/app/ControlService.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/Terminal.h"

#include <QCommandLineParser>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QJsonDocument>
#include <QJsonObject>

namespace vantro {

namespace {

QString describe(const QString& command)
{
    if (command == QLatin1String("toggle"))
        return QStringLiteral("Starts a dictation, or ends and transcribes the one that is being recorded.");
    if (command == QLatin1String("start"))
        return QStringLiteral("Opens the launcher and records.");
    if (command == QLatin1String("stop"))
        return QStringLiteral("Ends the recording and has it transcribed, as Space does.");
    if (command == QLatin1String("cancel"))
        return QStringLiteral("Discards the dictation, as Escape does.");
    return QStringLiteral("Tells what the running program is doing.");
}

void printStatus(const QByteArray& json, bool asJson)
{
    if (asJson) {
        terminal::writeLine(QString::fromUtf8(json));
        return;
    }
    const QJsonObject status = QJsonDocument::fromJson(json).object();
    for (const char* key : {"state", "mode", "model", "microphone", "shortcut", "shortcut_failure", "version"}) {
        const QString name = QLatin1String(key);
        if (status.contains(name))
            terminal::writeLine(name + QLatin1Char('\t') + status.value(name).toString());
    }
}

} // namespace

int runControl(const QString& command, const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        describe(command) +
        QStringLiteral(
            "\n\nExit status: 0 done, 1 refused, 2 wrong usage, 3 vantro is not running, 4 no session bus."));
    terminal::addHelpOption(parser);
    const bool isStatus = command == QLatin1String("status");
    if (isStatus)
        parser.addOption({QStringLiteral("json"), QStringLiteral("One JSON object.")});
    if (!parser.parse(QStringList{QStringLiteral("vantro ") + command} + arguments) ||
        !parser.positionalArguments().isEmpty()) {
        terminal::writeError(QStringLiteral("wrong usage (see vantro %1 --help)").arg(command));
        return ExitCode::usage;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        terminal::writeLine(terminal::helpText(parser, command));
        return ExitCode::done;
    }

    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        terminal::writeError(
            QStringLiteral("%1: there is no session bus: run it inside the desktop session").arg(command));
        return ExitCode::noService;
    }
    if (!bus.interface()->isServiceRegistered(ControlService::busName())) {
        terminal::writeError(QStringLiteral("%1: vantro is not running: start it first").arg(command));
        return ExitCode::notFound;
    }
    const QString method = command.left(1).toUpper() + command.mid(1);
    const QDBusMessage reply = bus.call(QDBusMessage::createMethodCall(
        ControlService::busName(), ControlService::objectPath(), ControlService::interfaceName(), method));
    if (reply.type() == QDBusMessage::ErrorMessage) {
        terminal::writeError(QStringLiteral("%1: %2").arg(command, reply.errorMessage()));
        return ExitCode::failed;
    }
    if (isStatus)
        printStatus(reply.arguments().value(0).toString().toUtf8(), parser.isSet(QStringLiteral("json")));
    return ExitCode::done;
}

} // namespace vantro
