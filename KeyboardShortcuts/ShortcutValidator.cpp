#include "KeyboardShortcuts/ShortcutValidator.h"

#include "platform/DesktopShortcuts.h"
#include "platform/KeyCode.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace vantro {

namespace {

using Name = KeyboardShortcuts::Name;
using Reason = ShortcutRefusal::Reason;
using Shortcut = KeyboardShortcuts::Shortcut;

struct Message
{
    const char* key;
    const char* text;
};

constexpr std::array messages{
    Message{"keyboard_shortcut_used_by_system",
            QT_TRANSLATE_NOOP("KeyboardShortcuts", "%1 is already used by the desktop: %2.")},
    Message{"keyboard_shortcuts_can_be_changed",
            QT_TRANSLATE_NOOP("KeyboardShortcuts",
                              "Choose another shortcut, or change that one in the desktop's keyboard settings.")},
    Message{"force_use_shortcut", QT_TRANSLATE_NOOP("KeyboardShortcuts", "Use anyway")},
    Message{"keyboard_shortcut_disallowed",
            QT_TRANSLATE_NOOP("KeyboardShortcuts", "%1 is needed for typing in every program. Add Ctrl, Alt or Super, "
                                                   "or take a function or media key.")},
    Message{"keyboard_shortcut_pastes",
            QT_TRANSLATE_NOOP("KeyboardShortcuts",
                              "%1 pastes in many programs: with it, each paste would start a recording.")},
    Message{"keyboard_shortcut_edits",
            QT_TRANSLATE_NOOP("KeyboardShortcuts", "%1 is used for editing in most programs. They would not get it any "
                                                   "more.")},
    Message{"choose_another_shortcut", QT_TRANSLATE_NOOP("KeyboardShortcuts", "Choose another shortcut.")},
    Message{"keyboard_shortcut_used_by_menu_item",
            QT_TRANSLATE_NOOP("KeyboardShortcuts", "%1 already means \"%2\" in vantro.")},
};

/// What vantro itself and its user press to paste.
constexpr std::array pasteChords{"Ctrl+V", "Ctrl+Shift+V", "Shift+Insert"};
constexpr std::array editingChords{"Ctrl+A",    "Ctrl+C",       "Ctrl+D",       "Ctrl+F",      "Ctrl+G",     "Ctrl+H",
                                   "Ctrl+K",    "Ctrl+L",       "Ctrl+N",       "Ctrl+O",      "Ctrl+P",     "Ctrl+Q",
                                   "Ctrl+R",    "Ctrl+S",       "Ctrl+T",       "Ctrl+W",      "Ctrl+X",     "Ctrl+Y",
                                   "Ctrl+Z",    "Ctrl+Shift+C", "Ctrl+Shift+Z", "Ctrl+Insert", "Alt+F4",     "Ctrl+Tab",
                                   "Ctrl+Home", "Ctrl+End",     "Ctrl+Left",    "Ctrl+Right",  "Ctrl+Return"};

template <std::size_t count>
bool isOneOf(const std::array<const char*, count>& chords, const Shortcut& shortcut)
{
    return std::ranges::any_of(chords, [&](const char* text) {
        const auto chord = parseShortcut(QLatin1String(text));
        return chord && chord->keyCode == static_cast<std::uint32_t>(shortcut.carbonKeyCode) &&
               chord->modifiers == static_cast<std::uint32_t>(shortcut.carbonModifiers);
    });
}

QString localized(const char* key)
{
    const auto* const message = std::ranges::find(messages, std::string_view(key), &Message::key);
    return QCoreApplication::translate("KeyboardShortcuts", message->text);
}

QString translated(const char* text)
{
    return QCoreApplication::translate("KeyboardShortcuts", text);
}

std::uint32_t keyCodeOf(const Shortcut& shortcut)
{
    return static_cast<std::uint32_t>(shortcut.carbonKeyCode);
}

ShortcutRefusal systemRefusal(const Shortcut& shortcut, const QString& action, bool canForce)
{
    return {.reason = Reason::usedBySystem,
            .message = localized("keyboard_shortcut_used_by_system").arg(shortcut.displayText(), action),
            .advice = localized("keyboard_shortcuts_can_be_changed"),
            .canForce = canForce};
}

ShortcutRefusal whyEdits(const char* message, const Shortcut& shortcut, bool canForce)
{
    return {.reason = Reason::edits,
            .message = localized(message).arg(shortcut.displayText()),
            .advice = localized("choose_another_shortcut"),
            .canForce = canForce};
}

} // namespace

ShortcutValidator::ShortcutValidator(KeyboardShortcuts& shortcuts, const DesktopShortcuts& desktop)
    : shortcuts_(shortcuts)
    , desktop_(desktop)
{
}

QString ShortcutValidator::title(const Name& name)
{
    if (name.rawValue == Name::pasteOriginal.rawValue)
        return translated(QT_TRANSLATE_NOOP("KeyboardShortcuts", "Paste as spoken"));
    return name.rawValue == Name::openModal.rawValue
               ? translated(QT_TRANSLATE_NOOP("KeyboardShortcuts", "Start a dictation"))
               : translated(QT_TRANSLATE_NOOP("KeyboardShortcuts", "End the recording"));
}

QString ShortcutValidator::forceText()
{
    return localized("force_use_shortcut");
}

std::optional<ShortcutRefusal> ShortcutValidator::refusal(const Name& name, const Shortcut& shortcut)
{
    const bool isGlobal = name.isGlobal();
    if (isGlobal && isPasteChord(shortcut))
        return whyEdits("keyboard_shortcut_pastes", shortcut, false);
    if (auto refused = whyDisallowed(name, shortcut))
        return refused;
    if (auto refused = usedBySystem(shortcut))
        return refused;
    if (auto refused = usedByMenuItem(name, shortcut))
        return refused;
    if (isGlobal && isOneOf(editingChords, shortcut))
        return whyEdits("keyboard_shortcut_edits", shortcut, true);
    return std::nullopt;
}

bool ShortcutValidator::isPasteChord(const Shortcut& shortcut)
{
    return isOneOf(pasteChords, shortcut);
}

std::optional<ShortcutRefusal> ShortcutValidator::whyDisallowed(const Name& name, const Shortcut& shortcut) const
{
    constexpr std::uint32_t realModifiers = Modifier::all & ~Modifier::shift;
    // Shortcuts that are active only in the launcher cannot interfere with typing elsewhere.
    const bool isGlobal = name.isGlobal();
    if (!isGlobal || (shortcut.carbonModifiers & realModifiers) != 0 || !KeyCode::isForTyping(keyCodeOf(shortcut)))
        return std::nullopt;
    return ShortcutRefusal{.reason = Reason::disallowed,
                           .message = localized("keyboard_shortcut_disallowed").arg(shortcut.displayText()),
                           .advice = {},
                           .canForce = false};
}

std::optional<ShortcutRefusal> ShortcutValidator::usedBySystem(const Shortcut& shortcut)
{
    if (const auto action = desktop_.reservedFor(keyCodeOf(shortcut), shortcut.carbonModifiers))
        return systemRefusal(shortcut, *action, false);
    const auto unavailable = shortcuts_.whyUnavailable(shortcut);
    for (const DesktopShortcut& bound : desktop_.bound()) {
        if (bound.keyCode == shortcut.carbonKeyCode && bound.modifiers == shortcut.carbonModifiers)
            return systemRefusal(shortcut, bound.action, !unavailable);
    }
    if (unavailable)
        return ShortcutRefusal{
            .reason = Reason::usedBySystem, .message = *unavailable, .advice = {}, .canForce = false};
    return std::nullopt;
}

std::optional<ShortcutRefusal> ShortcutValidator::usedByMenuItem(const Name& name, const Shortcut& shortcut) const
{
    const auto refused = [&](const QString& title) {
        return ShortcutRefusal{.reason = Reason::usedByMenuItem,
                               .message =
                                   localized("keyboard_shortcut_used_by_menu_item").arg(shortcut.displayText(), title),
                               .advice = {},
                               .canForce = true};
    };
    for (const Name& other : {Name::openModal, Name::stopRecordingAndCloseModal, Name::pasteOriginal}) {
        if (other.rawValue != name.rawValue && shortcuts_.shortcut(other) == shortcut)
            return refused(title(other));
    }
    if (shortcut.carbonModifiers != 0)
        return std::nullopt;
    if (shortcut.carbonKeyCode == KeyCode::escape)
        return refused(translated(QT_TRANSLATE_NOOP("KeyboardShortcuts", "Cancel the dictation")));
    for (int mode = 1; mode <= 9; ++mode) {
        if (shortcut.displayText() == QString::number(mode))
            return refused(translated(QT_TRANSLATE_NOOP("KeyboardShortcuts", "Choose mode %1")).arg(mode));
    }
    return std::nullopt;
}

} // namespace vantro
