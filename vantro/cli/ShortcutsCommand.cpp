#include "KeyboardShortcuts/ShortcutValidator.h"
#include "base/Settings.h"
#include "base/Translations.h"
#include "platform/KeyCode.h"
#include "platform/Platform.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/RunningProgram.h"
#include "vantro/cli/Terminal.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <array>

using namespace std::chrono_literals;

namespace vantro {

namespace {

using Name = KeyboardShortcuts::Name;
using Shortcut = KeyboardShortcuts::Shortcut;

constexpr const char* description = QT_TRANSLATE_NOOP("Command", R"(The keyboard shortcuts of vantro.

  show            Show all, and whether they work. The default.
  set NAME KEYS   Use these keys, for example Ctrl+Alt+D, F9 or MediaRecord.
  test NAME       Wait until the shortcut is pressed.
  clear NAME      Remove a shortcut; "stop" goes back to Space.
  mode [MODE]     Show or set the mode. press: the shortcut opens the launcher, Space ends the recording. hold: the
                  recording lasts as long as the shortcut is held.

NAME is "open" (openModal: start a dictation), "stop" (stopRecordingAndCloseModal: end the recording; only while the
launcher has the focus) or "original" (pasteOriginal: paste the words of the last dictation as they were said).
Changes take effect at once.

Exit status: 0 done, 1 refused or not pressed, 2 wrong usage, 4 no desktop, 5 the settings cannot be written.)");

constexpr auto followPatience = 3s;
constexpr int secondsToPress = 10;

struct Slot
{
    const char* word;
    const Name& name;
};

/// What the actions work on.
struct Session
{
    UserDefaults defaults{UserDefaults::standardPath()};
    NotificationCenter notifications;
    Platform keyboard = makePlatform(PlatformPart::shortcuts);
    KeyboardShortcuts shortcuts{*keyboard.hotKeys, defaults, notifications};
    ShortcutValidator validator{shortcuts, *keyboard.desktopShortcuts};
    std::optional<QJsonObject> running = runningProgramStatus();

    [[nodiscard]] QString mode() const
    {
        return defaults.get(setting::holdToTalk) ? QStringLiteral("hold") : QStringLiteral("press");
    }
};

const std::array<Slot, 3>& slotList()
{
    static const std::array<Slot, 3> all{Slot{"open", Name::openModal}, Slot{"stop", Name::stopRecordingAndCloseModal},
                                         Slot{"original", Name::pasteOriginal}};
    return all;
}

const Name& nameFrom(const CommandCall& call)
{
    const QString& text = call.words.front();
    for (const Slot& slot : slotList()) {
        if (text == QLatin1String(slot.word) || text == slot.name.rawValue)
            return slot.name;
    }
    throw WrongUsage(Command::tr("there is no shortcut \"%1\": use open, stop or original").arg(text));
}

void requireKeyboard()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        throw CommandError(ExitCode::noService, Command::tr("there is no desktop: run it in your desktop session"));
}

QString textOf(const std::optional<Shortcut>& shortcut)
{
    return shortcut ? shortcut->displayText() : QString();
}

bool isHeldByRunningProgram(const Session& session, const Name& name)
{
    return session.running && name.rawValue == Name::openModal.rawValue;
}

/// Why the shortcut does not work; empty when it does, or when it only works in the launcher.
QString problemOf(Session& session, const Name& name)
{
    const auto shortcut = session.shortcuts.shortcut(name);
    if (!shortcut && name.rawValue == Name::pasteOriginal.rawValue)
        return {};
    if (!shortcut)
        return Command::tr("none is set: run vantro shortcuts set open Ctrl+Alt+D");
    if (isHeldByRunningProgram(session, name))
        return session.running->value(QStringLiteral("shortcut_failure")).toString();
    if (name.rawValue != Name::openModal.rawValue) // the program holds the one of pasteOriginal
        return {};
    return session.shortcuts.whyUnavailable(*shortcut).value_or(QString());
}

/// What the user still has to do so that it works in other programs. Only the running program has asked the desktop.
std::optional<QString> howToBind(const Session& session, const Name& name)
{
    if (!isHeldByRunningProgram(session, name))
        return session.shortcuts.howToBind(name);
    const QString text = session.running->value(QStringLiteral("how_to_bind")).toString();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

int show(const CommandCall& call)
{
    const Translations::Suspension forScripts(!terminal::outputIsTerminal());
    Session session;
    QJsonArray list;
    std::vector<QStringList> rows{{Command::tr("NAME"), Command::tr("KEYS"), Command::tr("FOR"), Command::tr("STATE")}};
    for (const Slot& slot : slotList()) {
        const QString keys = textOf(session.shortcuts.shortcut(slot.name));
        const QString problem = problemOf(session, slot.name);
        const QString title = ShortcutValidator::title(slot.name);
        const bool isGlobal = slot.name.isGlobal();
        list.append(QJsonObject{{QStringLiteral("name"), slot.name.rawValue},
                                {QStringLiteral("keys"), keys},
                                {QStringLiteral("for"), title},
                                {QStringLiteral("works"), problem.isEmpty() && !keys.isEmpty()},
                                {QStringLiteral("problem"), problem}});
        rows.push_back({QLatin1String(slot.word), keys.isEmpty() ? QStringLiteral("-") : keys, title,
                        !problem.isEmpty()              ? problem
                        : keys.isEmpty()                ? Command::tr("not set")
                        : !isGlobal                     ? Command::tr("in the launcher")
                        : howToBind(session, slot.name) ? Command::tr("by your desktop's binding")
                                                        : Command::tr("works")});
    }
    if (call.json()) {
        terminal::writeJson(QJsonObject{{QStringLiteral("mode"), session.mode()},
                                        {QStringLiteral("running"), session.running.has_value()},
                                        {QStringLiteral("shortcuts"), list}});
        return ExitCode::done;
    }
    terminal::writeTable(rows);
    if (const auto binding = howToBind(session, Name::openModal))
        terminal::writeMessage(*binding);
    if (terminal::outputIsTerminal())
        terminal::writeLine(session.mode() == QLatin1String("hold")
                                ? Command::tr("\nThe recording lasts as long as the shortcut is held (mode hold).")
                                : Command::tr("\nThe shortcut opens the launcher (mode press)."));
    return ExitCode::done;
}

/// Waits until the running program has adopted the stored shortcut. Returns why it does not work there; empty if it
/// does.
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
        QThread::msleep(20);
    }
    return Command::tr("the running vantro has not adopted it: restart it");
}

int set(const CommandCall& call)
{
    const Name& name = nameFrom(call);
    requireKeyboard();
    Session session;
    const QString& keys = call.words.back();
    const auto parsed = parseShortcut(keys);
    if (!parsed)
        throw WrongUsage(
            Command::tr("\"%1\" is not a shortcut: name modifiers and a key, for example Ctrl+Alt+D").arg(keys));
    const Shortcut shortcut({parsed->keyCode}, parsed->modifiers);
    const bool isOwn = isHeldByRunningProgram(session, name) && session.shortcuts.shortcut(name) == shortcut;
    const auto refusal = isOwn ? std::nullopt : session.validator.refusal(name, shortcut);
    if (refusal && !(call.has("force") && refusal->canForce)) {
        QStringList sentences{refusal->message, refusal->advice};
        if (refusal->canForce)
            sentences << Command::tr("--force uses it anyway.");
        sentences.removeAll(QString());
        throw CommandError(ExitCode::failed, sentences.join(QLatin1Char(' ')));
    }
    session.shortcuts.setShortcut(name, shortcut);
    session.defaults.requireSaved();
    if (isHeldByRunningProgram(session, name)) {
        if (const QString problem = followed(shortcut); !problem.isEmpty())
            throw CommandError(ExitCode::failed, problem);
    }
    if (call.json())
        terminal::writeJson(
            QJsonObject{{QStringLiteral("name"), name.rawValue}, {QStringLiteral("keys"), shortcut.displayText()}});
    else
        terminal::writeLine(QStringLiteral("%1: %2").arg(ShortcutValidator::title(name), shortcut.displayText()));
    return ExitCode::done;
}

int clear(const CommandCall& call)
{
    const Name& name = nameFrom(call);
    Session session;
    session.shortcuts.setShortcut(name, std::nullopt);
    session.defaults.requireSaved();
    const QString keys = textOf(session.shortcuts.shortcut(name));
    if (call.json())
        terminal::writeJson(QJsonObject{{QStringLiteral("name"), name.rawValue}, {QStringLiteral("keys"), keys}});
    else
        terminal::writeLine(QStringLiteral("%1: %2").arg(ShortcutValidator::title(name),
                                                         keys.isEmpty() ? Command::tr("no shortcut") : keys));
    return ExitCode::done;
}

/// Registers the shortcut here and waits for the user to press it.
int waitForPress(Session& session, const Shortcut& shortcut, bool json)
{
    if (const auto problem = session.shortcuts.whyUnavailable(shortcut))
        throw CommandError(ExitCode::failed, *problem);
    const Name trial{QStringLiteral("trial"), shortcut};
    QEventLoop loop;
    QElapsedTimer held;
    const auto down = session.shortcuts.onKeyDown(trial, loop, [&] { held.start(); });
    const auto up = session.shortcuts.onKeyUp(trial, loop, [&] { loop.quit(); });
    QTimer::singleShot(std::chrono::seconds(secondsToPress), &loop, [&] { loop.exit(ExitCode::failed); });
    terminal::writeMessage(Command::tr("Press %1 within %2 s.").arg(shortcut.displayText()).arg(secondsToPress));
    if (loop.exec() != ExitCode::done)
        throw CommandError(ExitCode::failed,
                           Command::tr("%1 was not pressed, or did not arrive").arg(shortcut.displayText()));
    const qint64 heldMs = held.elapsed();
    if (json)
        terminal::writeJson(
            QJsonObject{{QStringLiteral("keys"), shortcut.displayText()}, {QStringLiteral("held_ms"), heldMs}});
    else
        terminal::writeLine(Command::tr("%1 works: it was held for %2 ms").arg(shortcut.displayText()).arg(heldMs));
    return ExitCode::done;
}

int test(const CommandCall& call)
{
    const Name& name = nameFrom(call);
    requireKeyboard();
    Session session;
    const auto shortcut = session.shortcuts.shortcut(name);
    const QString problem = problemOf(session, name);
    if (!shortcut || !problem.isEmpty())
        throw CommandError(ExitCode::failed, problem);
    if (const auto binding = howToBind(session, name))
        throw CommandError(ExitCode::failed, *binding);
    if (!isHeldByRunningProgram(session, name))
        return waitForPress(session, *shortcut, call.json());
    if (call.json())
        terminal::writeJson(
            QJsonObject{{QStringLiteral("keys"), shortcut->displayText()}, {QStringLiteral("running"), true}});
    else
        terminal::writeLine(Command::tr("%1 works: it is used by the running vantro").arg(shortcut->displayText()));
    return ExitCode::done;
}

int mode(const CommandCall& call)
{
    const QString wanted = call.words.value(0);
    if (!QStringList{QString(), QStringLiteral("press"), QStringLiteral("hold")}.contains(wanted))
        throw WrongUsage(Command::tr("the mode is press or hold"));
    Session session;
    if (!wanted.isEmpty()) {
        session.defaults.set(setting::holdToTalk, wanted == QLatin1String("hold"));
        session.defaults.requireSaved();
    }
    if (call.json())
        terminal::writeJson(QJsonObject{{QStringLiteral("mode"), session.mode()}});
    else
        terminal::writeLine(session.mode());
    return ExitCode::done;
}

} // namespace

Command shortcutsCommand()
{
    return {.name = "shortcuts",
            .summary = QT_TRANSLATE_NOOP("Command", "Show, set, test and clear shortcuts; press or hold to talk."),
            .description = description,
            .actions = {{"show", show},
                        {"set", set, 2, 2, QT_TRANSLATE_NOOP("Command", "needs a name and keys")},
                        {"test", test, 1, 1, QT_TRANSLATE_NOOP("Command", "needs a name")},
                        {"clear", clear, 1, 1, QT_TRANSLATE_NOOP("Command", "needs a name")},
                        {"mode", mode, 0, 1}},
            .options = {Command::jsonOption,
                        {"force", QT_TRANSLATE_NOOP("Command", "Use a shortcut even if something else uses it.")}},
            .words = {{"NAME", QT_TRANSLATE_NOOP("Command", "open, stop or original."), "[NAME"},
                      {"KEYS", QT_TRANSLATE_NOOP("Command", "The keys."), "[KEYS]]]"}}};
}

} // namespace vantro
