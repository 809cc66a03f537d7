#pragma once

#include "platform/KeyEventPoster.h"

#include <QTimer>

#include <vector>

namespace vantro {

class X11Connection;
class X11Keymap;

/// Posts keystrokes through the XTest extension, which reaches every X11 program like a real keyboard: one of its own,
/// whose layout may differ from that of the keys under the user's fingers.
///
/// Held modifiers are released first and not pressed again: the user does not expect them to apply after the paste, and
/// a synthetic press could get stuck. A layout without a Latin `v` gets one on an unused key for a few seconds.
class X11KeyEventPoster final : public KeyEventPoster
{
public:
    /// @p connection must outlive the poster.
    explicit X11KeyEventPoster(X11Connection& connection);
    ~X11KeyEventPoster() override;

    [[nodiscard]] bool isOrdinaryKeyDown() const override;
    [[nodiscard]] bool isKeyboardTaken() const override;
    [[nodiscard]] bool isMenuOpen() const override;
    void postPaste(PasteChord chord) override;

private:
    struct Stroke;

    [[nodiscard]] bool isMenu(unsigned long window) const;
    void freeModifiers(const X11Keymap& keymap);
    [[nodiscard]] Stroke strokeFor(PasteChord chord);
    [[nodiscard]] unsigned borrowKey(const X11Keymap& keymap, const X11Keymap& pressed, unsigned long keysym);
    void returnBorrowedKey();
    [[nodiscard]] std::vector<unsigned> keysDown() const;

    X11Connection& connection_;
    bool hasXTest_ = false;
    unsigned long hiddenWindow_ = 0; ///< never shown
    unsigned long borrowedKeysym_ = 0;
    QTimer returnTimer_;
};

/// Whether the server has the XTest extension.
bool hasXTest(X11Connection& connection);

} // namespace vantro
