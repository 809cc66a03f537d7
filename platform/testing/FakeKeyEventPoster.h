#pragma once

#include "platform/KeyEventPoster.h"

#include <QString>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace vantro::doubles {

/// Notes the paste keystrokes instead of posting them.
class FakeKeyEventPoster final : public KeyEventPoster
{
public:
    [[nodiscard]] bool isOrdinaryKeyDown() const override { return keyDown_; }
    void postPaste(PasteChord chord) override
    {
        if (refusal_)
            throw KeyEventError(*refusal_);
        posted_.push_back(chord);
        if (target_)
            target_(chord);
    }

    /// From now on postPaste() throws with @p reason, or works again for nothing.
    void refuse(std::optional<QString> reason) { refusal_ = std::move(reason); }
    void setOrdinaryKeyDown(bool down) { keyDown_ = down; }
    /// What the program with the focus does when the keystroke reaches it.
    void setTarget(std::function<void(PasteChord)> target) { target_ = std::move(target); }

    [[nodiscard]] const std::vector<PasteChord>& posted() const { return posted_; }

private:
    std::optional<QString> refusal_;
    bool keyDown_ = false;
    std::function<void(PasteChord)> target_;
    std::vector<PasteChord> posted_;
};

} // namespace vantro::doubles
