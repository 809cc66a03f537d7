#include "vantro/ai/PromptSettings.h"
#include "vantro/app/ControlService.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/Terminal.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vantro {

namespace {

void printStatus(const QByteArray& json, bool asJson)
{
    if (asJson) {
        terminal::writeLine(QString::fromUtf8(json));
        return;
    }
    const QJsonObject status = QJsonDocument::fromJson(json).object();
    for (const char* key : {"state", "mode", "model", "microphone", "shortcut", "shortcut_failure", "desktop",
                            "shortcut_by", "clipboard_by", "paste_by", "panel_by", "windows_by", "version"}) {
        const QString name = QLatin1String(key);
        if (status.contains(name))
            terminal::writeLine(name + QLatin1Char('\t') + status.value(name).toString());
    }
    for (const auto& missing : status.value(QLatin1String("missing")).toArray())
        terminal::writeLine(QStringLiteral("missing\t") + missing.toString());
}

/// By its name here or its own.
ProcessingMode modeFrom(const QString& name)
{
    UserDefaults defaults(UserDefaults::standardPath());
    const PromptSettings prompts(defaults);
    if (const auto mode = prompts.find(name))
        return *mode;
    throw CommandError(ExitCode::notFound, Command::tr("there is no mode \"%1\": vantro modes lists them").arg(name));
}

/// "PasteOriginal" for "paste-original".
QString methodOf(const QString& command)
{
    QString method;
    const QStringList parts = command.split(QLatin1Char('-'));
    for (const QString& part : parts)
        method += part.left(1).toUpper() + part.mid(1);
    return method;
}

QDBusMessage requestFor(const CommandCall& call)
{
    const bool isStart = call.command == QLatin1String("start");
    const QString mode = isStart ? call.value("mode") : QString();
    const QString model = isStart ? call.value("model") : QString();
    const bool isSpecial = !mode.isEmpty() || !model.isEmpty();
    const QString method = isSpecial ? QStringLiteral("StartWith") : methodOf(call.command);
    QDBusMessage request = QDBusMessage::createMethodCall(ControlService::busName(), ControlService::objectPath(),
                                                          ControlService::interfaceName(), method);
    if (isSpecial)
        request << (mode.isEmpty() ? QString() : rawValue(modeFrom(mode))) << model;
    else if (!call.words.isEmpty())
        request << call.words.first();
    return request;
}

/// Where the session bus knows how, as it does when vantro is installed; only for what begins something.
void startProgram(QDBusConnectionInterface& bus, const CommandCall& call)
{
    const bool begins =
        QStringList{QStringLiteral("toggle"), QStringLiteral("start"), QStringLiteral("show")}.contains(call.command);
    if (!begins || !bus.activatableServiceNames().value().contains(ControlService::busName()))
        throw CommandError(ExitCode::notFound,
                           Command::tr("%1: vantro is not running: start it first").arg(call.command));
    const QDBusReply<void> started = bus.startService(ControlService::busName());
    if (!started.isValid())
        throw CommandError(
            ExitCode::failed,
            Command::tr("%1: vantro could not be started: %2").arg(call.command, started.error().message()));
}

int control(const CommandCall& call)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        throw CommandError(
            ExitCode::noService,
            Command::tr("%1: there is no session bus: run it in your desktop session").arg(call.command));
    if (!bus.interface()->isServiceRegistered(ControlService::busName()))
        startProgram(*bus.interface(), call);
    const QDBusMessage reply = bus.call(requestFor(call));
    if (reply.type() == QDBusMessage::ErrorMessage)
        throw CommandError(ExitCode::failed, QStringLiteral("%1: %2").arg(call.command, reply.errorMessage()));
    if (call.command == QLatin1String("status"))
        printStatus(reply.arguments().value(0).toString().toUtf8(), call.json());
    return ExitCode::done;
}

/// Appends the exit status, which is common to all of them, to @p sentence.
Command controlCommand(const char* name, const char* summary, const char* sentence)
{
    return {.name = name,
            .summary = summary,
            .description = (Command::tr(sentence) + QStringLiteral("\n\n") +
                            Command::tr("Exit status: 0 done, 1 refused, 2 wrong usage, 3 vantro is not running, "
                                        "4 no session bus."))
                               .toStdString(),
            .actions = {{"", control}}};
}

} // namespace

std::vector<Command> controlCommands()
{
    Command status = controlCommand("status", QT_TRANSLATE_NOOP("Command", "Show what the running program is doing."),
                                    QT_TRANSLATE_NOOP("Command", "Shows what the running program is doing."));
    status.options.push_back({"json", QT_TRANSLATE_NOOP("Command", "One JSON object.")});
    Command show = controlCommand(
        "show", QT_TRANSLATE_NOOP("Command", "Open one of the windows."),
        QT_TRANSLATE_NOOP("Command", "Opens one of the windows, of an installed vantro that is not running, too."));
    show.actions = {
        {"", control, 1, 1, QT_TRANSLATE_NOOP("Command", "needs a window: settings, history, notes or guide")}};
    show.words = {
        {"WINDOW",
         QT_TRANSLATE_NOOP("Command", "settings, history, notes, or guide, which leads to the first dictation."),
         "WINDOW"}};
    Command start = controlCommand(
        "start", QT_TRANSLATE_NOOP("Command", "Open the launcher and record."),
        QT_TRANSLATE_NOOP("Command",
                          "Opens the launcher and records. Starts an installed vantro that is not running."));
    start.options = {{"mode", QT_TRANSLATE_NOOP("Command", "Begin in this mode instead of the default one."), "MODE"},
                     {"model", QT_TRANSLATE_NOOP("Command", "Recognise this dictation with another model."), "NAME"}};
    return {
        controlCommand("toggle", QT_TRANSLATE_NOOP("Command", "Start a dictation, or end its recording."),
                       QT_TRANSLATE_NOOP(
                           "Command", "Starts a dictation, or ends the recording and has it transcribed; soon after a "
                                      "cancel, takes that back. Starts an installed vantro that is not running.")),
        start,
        controlCommand("stop", QT_TRANSLATE_NOOP("Command", "End the recording and have it transcribed."),
                       QT_TRANSLATE_NOOP("Command", "Ends the recording and has it transcribed, as Space does.")),
        controlCommand("paste-original", QT_TRANSLATE_NOOP("Command", "Paste the last dictation as it was said."),
                       QT_TRANSLATE_NOOP(
                           "Command",
                           "Pastes the words of the last dictation, as they were recognised, into the window in front: "
                           "what a language model has made of them is left out. Bound to a shortcut of its own by "
                           "vantro shortcuts set original KEYS.")),
        controlCommand("cancel", QT_TRANSLATE_NOOP("Command", "Discard the dictation."),
                       QT_TRANSLATE_NOOP("Command", "Discards the dictation, as Escape does.")),
        status,
        show,
        controlCommand(
            "quit", QT_TRANSLATE_NOOP("Command", "End the running program."),
            QT_TRANSLATE_NOOP("Command",
                              "Ends the running program. A recording that is under way is kept for the next start."))};
}

} // namespace vantro
