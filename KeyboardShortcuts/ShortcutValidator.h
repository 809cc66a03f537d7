#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"

#include <functional>
#include <optional>
#include <vector>

namespace vantro {

class DesktopShortcuts;

/// Why a shortcut is not simply taken, for the user.
struct ShortcutRefusal
{
    enum class Reason { usedBySystem, usedByMenuItem, disallowed };

    Reason reason = Reason::disallowed;
    QString message;
    /// What to do about it; may be empty.
    QString advice;
    /// Whether the shortcut can work all the same when the user wants it.
    bool canForce = false;
};

/// Judges a shortcut before it becomes a name's. Main thread only.
class ShortcutValidator
{
public:
    /// Everything outlives the validator.
    ShortcutValidator(KeyboardShortcuts& shortcuts, const DesktopShortcuts& desktop);

    /// Nothing when @p shortcut can be had for @p name. Asks the window system and the desktop's settings.
    [[nodiscard]] std::optional<ShortcutRefusal> refusal(const KeyboardShortcuts::Name& name,
                                                         const KeyboardShortcuts::Shortcut& shortcut);

    /// What @p name is for, as its settings call it.
    static QString title(const KeyboardShortcuts::Name& name);
    /// The caption of the button that takes a refused shortcut all the same.
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
