#pragma once

#include "platform/KeyEventPoster.h"

#include <QString>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace vantro::doubles {

/// Records the paste keystrokes instead of posting them.
class FakeKeyEventPoster final : public KeyEventPoster
{
public:
    [[nodiscard]] bool isOrdinaryKeyDown() const override { return keyDown_; }
    [[nodiscard]] bool isKeyboardTaken() const override { return isTaken_; }
    [[nodiscard]] bool isMenuOpen() const override { return isMenuOpen_; }
    void postPaste(PasteChord chord) override
    {
        if (refusal_)
            throw KeyEventError(*refusal_);
        posted_.push_back(chord);
        if (target_)
            target_(chord);
    }

    /// Makes postPaste() throw with @p reason; nullopt makes it succeed again.
    void refuse(std::optional<QString> reason) { refusal_ = std::move(reason); }
    void setOrdinaryKeyDown(bool down) { keyDown_ = down; }
    void setKeyboardTaken(bool taken) { isTaken_ = taken; }
    void setMenuOpen(bool open) { isMenuOpen_ = open; }
    /// Called as the focused program when it receives the keystroke.
    void setTarget(std::function<void(PasteChord)> target) { target_ = std::move(target); }

    [[nodiscard]] const std::vector<PasteChord>& posted() const { return posted_; }

private:
    std::optional<QString> refusal_;
    bool keyDown_ = false;
    bool isTaken_ = false;
    bool isMenuOpen_ = false;
    std::function<void(PasteChord)> target_;
    std::vector<PasteChord> posted_;
};

} // namespace vantro::doubles
