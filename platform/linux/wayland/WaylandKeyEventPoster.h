#pragma once

#include "platform/KeyEventPoster.h"

#include <QString>

#include <functional>
#include <memory>

namespace vantro {

class WaylandConnection;
class WaylandKeyboard;
class WaylandKeymap;

/// Presses keys in whichever way the compositor has.
class WaylandKeyEventPoster final : public KeyEventPoster
{
public:
    struct Hooks
    {
        std::function<void()> aboutToPost;     ///< called right before the keys are pressed
        std::function<bool()> isKeyboardTaken; ///< what isKeyboardTaken() answers
    };

    /// Both must outlive the poster.
    WaylandKeyEventPoster(WaylandConnection& connection, const WaylandKeymap& keymap, Hooks hooks);
    ~WaylandKeyEventPoster() override;
    WaylandKeyEventPoster(const WaylandKeyEventPoster&) = delete;
    WaylandKeyEventPoster& operator=(const WaylandKeyEventPoster&) = delete;

    /// The protocol's name; empty if the compositor lets no program press keys.
    [[nodiscard]] QString way() const;

    /// Nobody tells, and it does not matter.
    [[nodiscard]] bool isOrdinaryKeyDown() const override { return false; }
    [[nodiscard]] bool isKeyboardTaken() const override { return hooks_.isKeyboardTaken(); }
    /// Compositors keep their menus to themselves.
    [[nodiscard]] bool isMenuOpen() const override { return false; }
    void postPaste(PasteChord chord) override;

private:
    WaylandConnection& connection_;
    Hooks hooks_;
    std::unique_ptr<WaylandKeyboard> keyboard_; ///< null if there is none
};

} // namespace vantro
