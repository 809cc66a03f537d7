#pragma once

#include "base/Error.h"

#include <cstdint>

namespace vantro {

class KeyEventError : public Error
{
public:
    using Error::Error;
};

/// Keystrokes into whatever window has the focus. Main thread only.
class KeyEventPoster
{
public:
    /// The chords that make programs paste.
    enum class PasteChord { ControlV, ControlShiftV, ShiftInsert };

    virtual ~KeyEventPoster() = default;

    /// Whether the user holds a key down that is not a modifier. If that key is a hot key, of this program or another,
    /// it swallows every keystroke until it is released: wait a while before posting.
    [[nodiscard]] virtual bool isOrdinaryKeyDown() const = 0;

    /// Presses and releases @p chord, whatever the keyboard layout and whatever modifiers the user holds. Nothing stays
    /// pressed, also when it throws KeyEventError.
    virtual void postPaste(PasteChord chord) = 0;
};

} // namespace vantro
