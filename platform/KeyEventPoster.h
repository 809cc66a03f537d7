#pragma once

#include "base/Error.h"

#include <cstdint>

namespace vantro {

class KeyEventError : public Error
{
public:
    using Error::Error;
};

/// Sends keystrokes to the focused window. Main thread only.
class KeyEventPoster
{
public:
    /// The keystrokes that programs paste on.
    enum class PasteChord { ControlV, ControlShiftV, ShiftInsert };

    virtual ~KeyEventPoster() = default;

    /// Whether a key other than a modifier is held down. If it is a hot key, of this or another program, its grab
    /// swallows all keystrokes until it is released, so wait before posting.
    [[nodiscard]] virtual bool isOrdinaryKeyDown() const = 0;

    /// Whether another program has the keyboard to itself: an open menu, or a locked screen.
    [[nodiscard]] virtual bool isKeyboardTaken() const = 0;
    /// Whether a program shows a menu. It then has the keyboard, and its user is there.
    [[nodiscard]] virtual bool isMenuOpen() const = 0;

    /// Presses and releases @p chord, independently of the keyboard layout and held modifiers. Leaves no key pressed,
    /// even when it throws KeyEventError.
    virtual void postPaste(PasteChord chord) = 0;
};

} // namespace vantro
