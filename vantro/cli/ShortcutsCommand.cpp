#include "vantro/cli/ShortcutsCommand.h"

#include "KeyboardShortcuts/ShortcutValidator.h"
#include "base/Settings.h"
#include "platform/KeyCode.h"
#include "platform/Platform.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/RunningProgram.h"
#include "vantro/cli/Terminal.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTimer>

#include <array>

using namespace std::chrono_literals;

namespace vantro {

namespace {

using Name = KeyboardShortcuts::Name;
using Shortcut = KeyboardShortcuts::Shortcut;

constexpr char description[] =
    R"(The shortcuts of vantro.

  show            Both, and whether they work. The default.
  set NAME KEYS   Use these keys, for example Ctrl+Alt+D, F9 or MediaRecord.
  test NAME       Wait until the shortcut is pressed.
  clear NAME      Take the shortcut away; "stop" goes back to Space.
  mode [MODE]     press: the shortcut opens the launcher, Space ends the recording. hold: the recording lasts as long
                  as the shortcut is held.

NAME is "open" (openModal: start a dictation) or "stop" (stopRecordingAndCloseModal: end the recording; it counts only
while the launcher has the keyboard). A running vantro follows at once.

Exit status: 0 done, 1 refused or not pressed, 2 wrong usage, 4 no X server.)";

constexpr auto followPatience = 3s;
constexpr int secondsToPress = 10;

struct Slot
{
    const char* word;
    const Name& name;
};

/// What the command works on.
struct Session
{
    UserDefaults defaults{UserDefaults::standardPath()};
    NotificationCenter notifications;
    Platform keyboard = makePlatform(PlatformPart::shortcuts);
    KeyboardShortcuts shortcuts{*keyboard.hotKeys, defaults, notifications};
    ShortcutValidator validator{shortcuts, *keyboard.desktopShortcuts};
    std::optional<QJsonObject> running = runningProgramStatus();
    bool json = false;

    [[nodiscard]] QString mode() const
    {
        return defaults.get(setting::holdToTalk) ? QStringLiteral("hold") : QStringLiteral("press");
    }
};

const std::array<Slot, 2>& slotList()
{
    static const std::array<Slot, 2> all{Slot{"open", Name::openModal}, Slot{"stop", Name::stopRecordingAndCloseModal}};
    return all;
}

const Name* nameOf(const QString& text)
{
    for (const Slot& slot : slotList()) {
        if (text == QLatin1String(slot.word) || text == slot.name.rawValue)
            return &slot.name;
    }
    return nullptr;
}

int wrongUsage(const QString& text)
{
    terminal::writeError(text + QStringLiteral(" (see vantro shortcuts --help)"));
    return ExitCode::usage;
}

void writeJson(const QJsonObject& object)
{
    terminal::writeLine(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

QString textOf(const std::optional<Shortcut>& shortcut)
{
    return shortcut ? shortcut->displayText() : QString();
}

bool isHeldByRunningProgram(const Session& session, const Name& name)
{
    return session.running && name.rawValue == Name::openModal.rawValue;
}

/// Why the shortcut does not work; empty when it does, or counts only in the launcher.
QString problemOf(Session& session, const Name& name)
{
    const auto shortcut = session.shortcuts.shortcut(name);
    if (!shortcut)
        return QStringLiteral("none is set: run vantro shortcuts set open Ctrl+Alt+D");
    if (isHeldByRunningProgram(session, name))
        return session.running->value(QStringLiteral("shortcut_failure")).toString();
    if (name.rawValue != Name::openModal.rawValue)
        return {};
    return session.shortcuts.whyUnavailable(*shortcut).value_or(QString());
}

int show(Session& session)
{
    QJsonArray list;
    std::vector<QStringList> rows{
        {QStringLiteral("NAME"), QStringLiteral("KEYS"), QStringLiteral("FOR"), QStringLiteral("STATE")}};
    for (const Slot& slot : slotList()) {
        const QString keys = textOf(session.shortcuts.shortcut(slot.name));
        const QString problem = problemOf(session, slot.name);
        const QString title = ShortcutValidator::title(slot.name);
        const bool isGlobal = slot.name.rawValue == Name::openModal.rawValue;
        list.append(QJsonObject{{QStringLiteral("name"), slot.name.rawValue},
                                {QStringLiteral("keys"), keys},
                                {QStringLiteral("for"), title},
                                {QStringLiteral("works"), problem.isEmpty()},
                                {QStringLiteral("problem"), problem}});
        rows.push_back({QLatin1String(slot.word), keys.isEmpty() ? QStringLiteral("-") : keys, title,
                        !problem.isEmpty() ? problem
                        : isGlobal         ? QStringLiteral("works")
                                           : QStringLiteral("in the launcher")});
    }
    if (session.json) {
        writeJson({{QStringLiteral("mode"), session.mode()},
                   {QStringLiteral("running"), session.running.has_value()},
                   {QStringLiteral("shortcuts"), list}});
        return ExitCode::done;
    }
    terminal::writeTable(rows);
    if (terminal::outputIsTerminal())
        terminal::writeLine(session.mode() == QLatin1String("hold")
                                ? QStringLiteral("\nThe recording lasts as long as the shortcut is held (mode hold).")
                                : QStringLiteral("\nThe shortcut opens the launcher (mode press)."));
    return ExitCode::done;
}

/// Waits until the running program has adopted what was stored; why it does not work there, if so.
QString followed(const Shortcut& shortcut)
{
    QElapsedTimer time;
    time.start();
    while (!time.hasExpired(std::chrono::milliseconds(followPatience).count())) {
        const auto status = runningProgramStatus();
        if (!status)
            return {};
        if (status->value(QStringLiteral("shortcut")).toString() == shortcut.displayText())
            return status->value(QStringLiteral("shortcut_failure")).toString();
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }
    return QStringLiteral("the running vantro has not adopted it: start it again");
}

int set(Session& session, const Name& name, const QString& keys, bool force)
{
    const auto parsed = parseShortcut(keys);
    if (!parsed)
        return wrongUsage(
            QStringLiteral("\"%1\" is no shortcut: name modifiers and a key, for example Ctrl+Alt+D").arg(keys));
    const Shortcut shortcut({parsed->keyCode}, parsed->modifiers);
    const bool isOwn = isHeldByRunningProgram(session, name) && session.shortcuts.shortcut(name) == shortcut;
    const auto refusal = isOwn ? std::nullopt : session.validator.refusal(name, shortcut);
    if (refusal && !(force && refusal->canForce)) {
        QStringList sentences{refusal->message, refusal->advice};
        if (refusal->canForce)
            sentences << QStringLiteral("--force uses it anyway.");
        sentences.removeAll(QString());
        terminal::writeError(sentences.join(QLatin1Char(' ')));
        return ExitCode::failed;
    }
    session.shortcuts.setShortcut(name, shortcut);
    if (isHeldByRunningProgram(session, name)) {
        if (const QString problem = followed(shortcut); !problem.isEmpty()) {
            terminal::writeError(problem);
            return ExitCode::failed;
        }
    }
    if (session.json)
        writeJson({{QStringLiteral("name"), name.rawValue}, {QStringLiteral("keys"), shortcut.displayText()}});
    else
        terminal::writeLine(QStringLiteral("%1: %2").arg(ShortcutValidator::title(name), shortcut.displayText()));
    return ExitCode::done;
}

int clear(Session& session, const Name& name)
{
    session.shortcuts.setShortcut(name, std::nullopt);
    const QString keys = textOf(session.shortcuts.shortcut(name));
    if (session.json)
        writeJson({{QStringLiteral("name"), name.rawValue}, {QStringLiteral("keys"), keys}});
    else
        terminal::writeLine(QStringLiteral("%1: %2").arg(ShortcutValidator::title(name),
                                                         keys.isEmpty() ? QStringLiteral("no shortcut") : keys));
    return ExitCode::done;
}

/// Registers the shortcut here and waits for the user to press it.
int waitForPress(Session& session, const Shortcut& shortcut)
{
    if (const auto problem = session.shortcuts.whyUnavailable(shortcut)) {
        terminal::writeError(*problem);
        return ExitCode::failed;
    }
    const Name trial{QStringLiteral("trial"), shortcut};
    QEventLoop loop;
    QElapsedTimer held;
    const auto down = session.shortcuts.onKeyDown(trial, loop, [&] { held.start(); });
    const auto up = session.shortcuts.onKeyUp(trial, loop, [&] { loop.quit(); });
    QTimer::singleShot(std::chrono::seconds(secondsToPress), &loop, [&] { loop.exit(ExitCode::failed); });
    terminal::writeMessage(QStringLiteral("Press %1 within %2 s.").arg(shortcut.displayText()).arg(secondsToPress));
    if (loop.exec() != ExitCode::done) {
        terminal::writeError(QStringLiteral("%1 was not pressed, or did not come here").arg(shortcut.displayText()));
        return ExitCode::failed;
    }
    const qint64 heldMs = held.elapsed();
    if (session.json)
        writeJson({{QStringLiteral("keys"), shortcut.displayText()}, {QStringLiteral("held_ms"), heldMs}});
    else
        terminal::writeLine(QStringLiteral("%1 works: it was held for %2 ms").arg(shortcut.displayText()).arg(heldMs));
    return ExitCode::done;
}

int test(Session& session, const Name& name)
{
    const auto shortcut = session.shortcuts.shortcut(name);
    const QString problem = problemOf(session, name);
    if (!shortcut || !problem.isEmpty()) {
        terminal::writeError(problem);
        return ExitCode::failed;
    }
    if (!isHeldByRunningProgram(session, name))
        return waitForPress(session, *shortcut);
    if (session.json)
        writeJson({{QStringLiteral("keys"), shortcut->displayText()}, {QStringLiteral("running"), true}});
    else
        terminal::writeLine(QStringLiteral("%1 works: the running vantro has it").arg(shortcut->displayText()));
    return ExitCode::done;
}

int mode(Session& session, const QString& wanted)
{
    if (!wanted.isEmpty())
        session.defaults.set(setting::holdToTalk, wanted == QLatin1String("hold"));
    if (session.json)
        writeJson({{QStringLiteral("mode"), session.mode()}});
    else
        terminal::writeLine(session.mode());
    return ExitCode::done;
}

bool needsKeyboard(const QString& action)
{
    return action == QLatin1String("set") || action == QLatin1String("test");
}

int carryOut(const QStringList& words, bool json, bool force)
{
    const QString action = words.value(0, QStringLiteral("show"));
    const qsizetype expected = action == QLatin1String("set") ? 3 : action == QLatin1String("show") ? 1 : 2;
    static const QStringList actions{QStringLiteral("show"), QStringLiteral("set"), QStringLiteral("test"),
                                     QStringLiteral("clear"), QStringLiteral("mode")};
    if (!actions.contains(action))
        return wrongUsage(QStringLiteral("there is no action \"%1\"").arg(action));
    const bool isMode = action == QLatin1String("mode");
    if (words.size() > expected || (words.size() < expected && !isMode && action != QLatin1String("show")))
        return wrongUsage(
            QStringLiteral("shortcuts %1 takes %2")
                .arg(action, expected == 3 ? QStringLiteral("a name and keys") : QStringLiteral("one name")));
    Session session;
    session.json = json;
    if (isMode) {
        static const QStringList modes{QString(), QStringLiteral("press"), QStringLiteral("hold")};
        return modes.contains(words.value(1)) ? mode(session, words.value(1))
                                              : wrongUsage(QStringLiteral("the mode is press or hold"));
    }
    if (action == QLatin1String("show"))
        return show(session);
    const Name* const name = nameOf(words.value(1));
    if (name == nullptr)
        return wrongUsage(QStringLiteral("there is no shortcut \"%1\": take open or stop").arg(words.value(1)));
    if (needsKeyboard(action) && qEnvironmentVariableIsEmpty("DISPLAY")) {
        terminal::writeError(QStringLiteral("there is no X server: run it inside the desktop session"));
        return ExitCode::noService;
    }
    if (action == QLatin1String("set"))
        return set(session, *name, words.value(2), force);
    return action == QLatin1String("test") ? test(session, *name) : clear(session, *name);
}

} // namespace

int runShortcuts(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    terminal::addHelpOption(parser);
    parser.addOption({QStringLiteral("json"), QStringLiteral("JSON instead of text.")});
    parser.addOption({QStringLiteral("force"), QStringLiteral("Use a shortcut that something else uses too.")});
    parser.addPositionalArgument(QStringLiteral("ACTION"), QStringLiteral("What to do."), QStringLiteral("[ACTION"));
    parser.addPositionalArgument(QStringLiteral("NAME"), QStringLiteral("open or stop."), QStringLiteral("[NAME"));
    parser.addPositionalArgument(QStringLiteral("KEYS"), QStringLiteral("The keys."), QStringLiteral("[KEYS]]]"));
    if (!parser.parse(QStringList{QStringLiteral("vantro shortcuts")} + arguments))
        return wrongUsage(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        terminal::writeLine(terminal::helpText(parser, QStringLiteral("shortcuts")));
        return ExitCode::done;
    }
    return carryOut(parser.positionalArguments(), parser.isSet(QStringLiteral("json")),
                    parser.isSet(QStringLiteral("force")));
}

} // namespace vantro
