#include "vantro/main/ShortcutSetup.h"

#include "KeyboardShortcuts/ShortcutValidator.h"
#include "base/Logger.h"
#include "platform/KeyCode.h"
#include "vantro/main/Windows.h"

#include <QGuiApplication>

namespace vantro {

namespace {

const auto& openModal = KeyboardShortcuts::Name::openModal;

} // namespace

ShortcutSetup::ShortcutSetup(KeyboardShortcuts& shortcuts, Windows& windows) : shortcuts_(shortcuts), windows_(windows)
{
}

void ShortcutSetup::settle(const QString& wanted)
{
    if (!wanted.isEmpty()) {
        use(wanted);
    } else if (!shortcuts_.shortcut(openModal)) {
        propose();
        windows_.showOnboarding();
    }
}

void ShortcutSetup::propose()
{
    if (const auto proposed = shortcuts_.proposeShortcut(openModal))
        printLine(QStringLiteral("Press %1 to dictate").arg(proposed->displayText()));
    else
        windows_.askForShortcut(
            QGuiApplication::tr("The usual shortcuts are all taken by other programs. Record one of your own."));
}

void ShortcutSetup::use(const QString& text)
{
    const auto parsed = parseShortcut(text);
    if (!parsed)
        return;
    const KeyboardShortcuts::Shortcut shortcut({parsed->keyCode}, parsed->modifiers);
    if (ShortcutValidator::isPasteChord(shortcut))
        printLine(QGuiApplication::tr("%1 pastes in many programs: choose another shortcut").arg(text));
    else
        shortcuts_.setShortcut(openModal, shortcut);
}

void ShortcutSetup::handOver(const QStringList& arguments)
{
    if (arguments.isEmpty()) {
        windows_.showMain();
        return;
    }
    use(arguments.first());
    const auto shortcut = shortcuts_.shortcut(openModal);
    // A shortcut that does not work has its own alert.
    if (!shortcut || shortcuts_.failure(openModal))
        return;
    windows_.alerts().show(
        AlertWindow::Kind::informational, QGuiApplication::tr("vantro is running"),
        QGuiApplication::tr("Press %1 to dictate into the window you are working in.").arg(shortcut->displayText()));
}

} // namespace vantro
