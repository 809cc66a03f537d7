#include "vantro/cli/DevicesCommand.h"

#include "base/Settings.h"
#include "platform/Wording.h"
#include "vantro/cli/DevicesSession.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/Terminal.h"

#include <QCommandLineParser>

#include <algorithm>

namespace vantro {

namespace {

constexpr char description[] =
    R"(The microphones, and which of them is recorded.

  list                      All microphones. "used" is what a dictation would record from now. The default.
  watch                     The list again whenever it changes, until Ctrl-C.
  mode [system|custom|prioritized]
                            Tell or set how the microphone is picked: the system's default, one of your choice, or the
                            first of a list that is there.
  use NAME                  Record from this one (mode custom).
  priority [list]           The list of preferred microphones.
  priority add NAME         Put one at its end, and use the list (mode prioritized).
  priority remove NAME      Take one out.
  priority move NAME PLACE  Move one: a number from 1, or first, last, up, down.
  priority clear            Empty the list.
  bluetooth [on|off]        Whether a Bluetooth headset that is wanted as microphone is switched to its headset profile
                            while vantro records, and back afterwards. What plays on it sounds worse meanwhile.

NAME is a microphone's name, its number, or the beginning of its description. A running vantro follows at once.

Exit status: 0 done, 2 wrong usage, 3 no such microphone, 4 no sound server.)";

int wrongUsage(const QString& text)
{
    terminal::writeError(text + QStringLiteral(" (see vantro devices --help)"));
    return ExitCode::usage;
}

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

int tellMissing(const QString& text)
{
    terminal::writeError(QStringLiteral("there is no microphone \"%1\": vantro devices lists them").arg(text));
    return ExitCode::notFound;
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

/// What the settings have become, as a list of all.
int confirm(const DevicesSession& session)
{
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
    if (wanted == allAudioInputModes.end() || words.size() > 1)
        return wrongUsage(QStringLiteral("the mode is system, custom or prioritized"));
    session.devices.setInputMode(*wanted);
    return confirm(session);
}

int use(DevicesSession& session, const QStringList& words)
{
    if (words.size() != 1)
        return wrongUsage(QStringLiteral("devices use needs a microphone's name"));
    const AudioInputDevice* const device = find(session, words.first());
    if (device == nullptr)
        return tellMissing(words.first());
    session.devices.setSelectedDeviceID(device->id);
    session.devices.setInputMode(AudioInputMode::custom);
    return confirm(session);
}

/// The listed device that is meant: also one that is not there, by its name.
std::optional<QString> findListed(const DevicesSession& session, const QString& text)
{
    const AudioInputDevice* const present = find(session, text);
    const QString uid = present != nullptr ? present->uid : text;
    return session.rank(uid) > 0 ? std::optional(uid) : std::nullopt;
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
        return wrongUsage(QStringLiteral("the place is a number from 1, or first, last, up, down"));
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
    const AudioInputDevice* const device = find(session, name);
    if (device == nullptr)
        return tellMissing(name);
    session.devices.addPrioritizedDevice(*device);
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
        return wrongUsage(QStringLiteral("devices priority %1: wrong number of words").arg(action));
    if (action == QLatin1String("list"))
        return session.json ? listDevices(session) : listPriorities(session);
    if (action == QLatin1String("clear")) {
        session.devices.setPrioritizedDevices({});
        return confirm(session);
    }
    if (action == QLatin1String("add"))
        return add(session, name);
    if (action != QLatin1String("remove") && action != QLatin1String("move"))
        return wrongUsage(QStringLiteral("there is no action \"priority %1\"").arg(action));
    const auto uid = findListed(session, name);
    if (!uid)
        return tellMissing(name);
    if (action == QLatin1String("move"))
        return move(session, *uid, words.value(2));
    session.devices.removePrioritizedDevice(*uid);
    return confirm(session);
}

int bluetooth(DevicesSession& session, const QStringList& words)
{
    const QString wanted = words.value(0);
    if (words.size() > 1 || !QStringList{QString(), QStringLiteral("on"), QStringLiteral("off")}.contains(wanted))
        return wrongUsage(QStringLiteral("devices bluetooth is on or off"));
    if (!wanted.isEmpty())
        session.defaults.set(setting::bluetoothHeadsetProfile, wanted == QLatin1String("on"));
    terminal::writeLine(session.defaults.get(setting::bluetoothHeadsetProfile) ? QStringLiteral("on")
                                                                               : QStringLiteral("off"));
    return ExitCode::done;
}

int carryOut(QStringList words, bool json)
{
    using Action = int (*)(DevicesSession&, const QStringList&);
    static const QHash<QString, Action> withWords{{QStringLiteral("mode"), mode},
                                                  {QStringLiteral("use"), use},
                                                  {QStringLiteral("priority"), priority},
                                                  {QStringLiteral("bluetooth"), bluetooth}};
    const QString action = words.isEmpty() ? QStringLiteral("list") : words.takeFirst();
    const bool isList = action == QLatin1String("list");
    if (!isList && action != QLatin1String("watch") && !withWords.contains(action))
        return wrongUsage(QStringLiteral("there is no action \"%1\"").arg(action));
    DevicesSession session;
    session.json = json;
    if (withWords.contains(action))
        return withWords.value(action)(session, words);
    if (!words.isEmpty())
        return wrongUsage(QStringLiteral("too many words"));
    if (!isList)
        return watchDevices(session);
    if (!session.isReachable) {
        terminal::writeError(wording::noSoundServer());
        return ExitCode::noService;
    }
    return listDevices(session);
}

} // namespace

int runDevices(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    terminal::addHelpOption(parser);
    parser.addOption({QStringLiteral("json"), QStringLiteral("JSON instead of text.")});
    parser.addPositionalArgument(QStringLiteral("ACTION"), QStringLiteral("What to do."),
                                 QStringLiteral("[ACTION [WORD...]]"));
    if (!parser.parse(QStringList{QStringLiteral("vantro devices")} + arguments))
        return wrongUsage(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        terminal::writeLine(terminal::helpText(parser, QStringLiteral("devices")));
        return ExitCode::done;
    }
    return carryOut(parser.positionalArguments(), parser.isSet(QStringLiteral("json")));
}

} // namespace vantro
