#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"

#include <functional>
#include <optional>
#include <vector>

namespace vantro {

class DesktopShortcuts;

/// Why a shortcut is refused, for the user.
struct ShortcutRefusal
{
    enum class Reason { usedBySystem, usedByMenuItem, edits, disallowed };

    Reason reason = Reason::disallowed;
    QString message;
    /// What to do; may be empty.
    QString advice;
    /// Whether the user may use it anyway.
    bool canForce = false;
};

/// Checks a shortcut before it is assigned to a name. Main thread only.
class ShortcutValidator
{
public:
    /// Both must outlive the validator.
    ShortcutValidator(KeyboardShortcuts& shortcuts, const DesktopShortcuts& desktop);

    /// Returns nullopt when @p name can have @p shortcut. Queries the window system and the desktop's settings.
    [[nodiscard]] std::optional<ShortcutRefusal> refusal(const KeyboardShortcuts::Name& name,
                                                         const KeyboardShortcuts::Shortcut& shortcut);

    /// A global shortcut that pastes would start a recording with each text that is delivered.
    [[nodiscard]] static bool isPasteChord(const KeyboardShortcuts::Shortcut& shortcut);

    /// @p name's label in the settings.
    static QString title(const KeyboardShortcuts::Name& name);
    /// Label of the button that accepts a refused shortcut.
    static QString forceText();

private:
    [[nodiscard]] std::optional<ShortcutRefusal> whyDisallowed(const KeyboardShortcuts::Name& name,
                                                               const KeyboardShortcuts::Shortcut& shortcut) const;
    [[nodiscard]] std::optional<ShortcutRefusal> usedBySystem(const KeyboardShortcuts::Shortcut& shortcut);
    [[nodiscard]] std::optional<ShortcutRefusal> usedByMenuItem(const KeyboardShortcuts::Name& name,
                                                                const KeyboardShortcuts::Shortcut& shortcut) const;

    KeyboardShortcuts& shortcuts_;
    const DesktopShortcuts& desktop_;
};

} // namespace vantro
