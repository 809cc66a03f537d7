#include "base/Settings.h"
#include "platform/Wording.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/DevicesSession.h"
#include "vantro/cli/Terminal.h"

#include <algorithm>

namespace vantro {

namespace {

constexpr const char* description =
    QT_TRANSLATE_NOOP("Command", R"(The microphones, and the one that vantro records from.

  list                      List all microphones; "used" marks the one for the next dictation. The default.
  watch                     Print the list again whenever it changes, until Ctrl-C.
  mode [system|custom|prioritized]
                            Show or set how the microphone is chosen: the system default, a specific one, or the first
                            connected one of a list.
  use NAME                  Record from this one (sets mode custom).
  priority [list]           Show the list of preferred microphones.
  priority add NAME         Append one to the list (sets mode prioritized).
  priority remove NAME      Remove one from the list.
  priority move NAME PLACE  Move one to a number from 1, or first, last, up, down.
  priority clear            Empty the list.
  bluetooth [on|off]        Show or set whether to switch a Bluetooth headset to its headset profile while recording
                            from it. Meanwhile everything it plays sounds worse.

NAME is a microphone's name, its number, or the beginning of its description. Takes effect at once.

Exit status: 0 done, 2 wrong usage, 3 no such microphone, 4 no sound server, 5 the settings cannot be written.)");

/// Null when none matches or several do.
const AudioInputDevice* find(const DevicesSession& session, const QString& text)
{
    const auto& devices = session.devices.availableDevices();
    const AudioInputDevice* begins = nullptr;
    int count = 0;
    for (const AudioInputDevice& device : devices) {
        if (device.uid == text || QString::number(device.id) == text)
            return &device;
        if (device.name.startsWith(text, Qt::CaseInsensitive)) {
            begins = &device;
            ++count;
        }
    }
    return count == 1 ? begins : nullptr;
}

[[noreturn]] void tellMissing(const QString& text)
{
    throw CommandError(ExitCode::notFound,
                       Command::tr("there is no microphone \"%1\": vantro devices lists them").arg(text));
}

const AudioInputDevice& present(const DevicesSession& session, const QString& text)
{
    const AudioInputDevice* const device = find(session, text);
    if (device == nullptr)
        tellMissing(text);
    return *device;
}

QString modeWord(AudioInputMode mode)
{
    switch (mode) {
    case AudioInputMode::systemDefault:
        return QStringLiteral("system");
    case AudioInputMode::custom:
        return QStringLiteral("custom");
    case AudioInputMode::prioritized:
        return QStringLiteral("prioritized");
    }
    Q_UNREACHABLE();
}

/// Shows the outcome as a list of all devices, unless a script would have to parse it.
int confirm(const DevicesSession& session)
{
    session.defaults.requireSaved();
    return session.json || terminal::outputIsTerminal() ? listDevices(session) : ExitCode::done;
}

int mode(DevicesSession& session, const QStringList& words)
{
    if (words.isEmpty() && session.json)
        return listDevices(session);
    if (words.isEmpty()) {
        terminal::writeLine(modeWord(session.devices.inputMode()));
        return ExitCode::done;
    }
    const auto wanted = std::ranges::find(allAudioInputModes, words.first(), modeWord);
    if (wanted == allAudioInputModes.end())
        throw WrongUsage(Command::tr("the mode is system, custom or prioritized"));
    session.devices.setInputMode(*wanted);
    return confirm(session);
}

int use(DevicesSession& session, const QStringList& words)
{
    session.devices.setSelectedDeviceID(present(session, words.first()).id);
    session.devices.setInputMode(AudioInputMode::custom);
    return confirm(session);
}

/// The uid of a device in the priority list, connected or not. Throws CommandError.
QString listed(const DevicesSession& session, const QString& text)
{
    const AudioInputDevice* const device = find(session, text);
    const QString uid = device != nullptr ? device->uid : text;
    if (session.rank(uid) == 0)
        tellMissing(text);
    return uid;
}

std::optional<std::size_t> placeOf(const QString& text, std::size_t current, std::size_t count)
{
    if (text == QLatin1String("first"))
        return 0;
    if (text == QLatin1String("last"))
        return count;
    if (text == QLatin1String("up"))
        return current > 0 ? current - 1 : 0;
    if (text == QLatin1String("down"))
        return current + 1;
    bool isNumber = false;
    const auto number = text.toUInt(&isNumber);
    return isNumber && number > 0 ? std::optional<std::size_t>(number - 1) : std::nullopt;
}

int move(DevicesSession& session, const QString& uid, const QString& place)
{
    const auto current = static_cast<std::size_t>(session.rank(uid) - 1);
    const auto wanted = placeOf(place, current, session.devices.prioritizedDevices().size());
    if (!wanted)
        throw WrongUsage(Command::tr("the place is a number from 1, or first, last, up, down"));
    session.devices.movePrioritizedDevice(uid, *wanted);
    return confirm(session);
}

int listPriorities(const DevicesSession& session)
{
    for (const PrioritizedDevice& device : session.devices.priorityOrder())
        terminal::writeLine(
            QStringList{QString::number(device.priority), device.id, device.name}.join(QLatin1Char('\t')));
    return ExitCode::done;
}

int add(DevicesSession& session, const QString& name)
{
    session.devices.addPrioritizedDevice(present(session, name));
    session.devices.setInputMode(AudioInputMode::prioritized);
    return confirm(session);
}

int priority(DevicesSession& session, const QStringList& words)
{
    const QString action = words.value(0, QStringLiteral("list"));
    const QString name = words.value(1);
    const qsizetype expected = action == QLatin1String("move")                                       ? 3
                               : action == QLatin1String("list") || action == QLatin1String("clear") ? 1
                                                                                                     : 2;
    if (!words.isEmpty() && words.size() != expected)
        throw WrongUsage(Command::tr("devices priority %1: wrong number of words").arg(action));
    if (action == QLatin1String("list"))
        return session.json ? listDevices(session) : listPriorities(session);
    if (action == QLatin1String("clear")) {
        session.devices.setPrioritizedDevices({});
        return confirm(session);
    }
    if (action == QLatin1String("add"))
        return add(session, name);
    if (action != QLatin1String("remove") && action != QLatin1String("move"))
        throw WrongUsage(Command::tr("there is no action \"priority %1\"").arg(action));
    const QString uid = listed(session, name);
    if (action == QLatin1String("move"))
        return move(session, uid, words.value(2));
    session.devices.removePrioritizedDevice(uid);
    return confirm(session);
}

int bluetooth(DevicesSession& session, const QStringList& words)
{
    const QString wanted = words.value(0);
    if (!QStringList{QString(), QStringLiteral("on"), QStringLiteral("off")}.contains(wanted))
        throw WrongUsage(Command::tr("devices bluetooth is on or off"));
    if (!wanted.isEmpty()) {
        session.defaults.set(setting::bluetoothHeadsetProfile, wanted == QLatin1String("on"));
        session.defaults.requireSaved();
    }
    terminal::writeLine(session.defaults.get(setting::bluetoothHeadsetProfile) ? QStringLiteral("on")
                                                                               : QStringLiteral("off"));
    return ExitCode::done;
}

int list(DevicesSession& session, const QStringList& /*words*/)
{
    if (!session.isReachable)
        throw CommandError(ExitCode::noService, wording::noSoundServer());
    return listDevices(session);
}

int watch(DevicesSession& session, const QStringList& /*words*/)
{
    return watchDevices(session);
}

} // namespace

Command devicesCommand()
{
    const auto on = [](int (*action)(DevicesSession&, const QStringList&)) {
        return [action](const CommandCall& call) {
            DevicesSession session;
            session.json = call.json();
            return action(session, call.words);
        };
    };
    return {.name = "devices",
            .summary = QT_TRANSLATE_NOOP("Command", "List microphones, choose one, or rank them."),
            .description = description,
            .actions = {{"list", on(list)},
                        {"watch", on(watch)},
                        {"mode", on(mode), 0, 1},
                        {"use", on(use), 1, 1, QT_TRANSLATE_NOOP("Command", "needs a microphone's name")},
                        {"priority", on(priority), 0, 3},
                        {"bluetooth", on(bluetooth), 0, 1}},
            .options = {Command::jsonOption},
            .words = {{"WORD", QT_TRANSLATE_NOOP("Command", "Arguments of the action."), "[WORD...]]"}}};
}

} // namespace vantro
