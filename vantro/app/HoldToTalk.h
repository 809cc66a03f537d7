#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "base/Clock.h"
#include "base/UserDefaults.h"
#include "vantro/app/Dictation.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace vantro {

/// The two ways to use the dictation shortcut. By default, releasing it opens the launcher, which takes the keyboard
/// focus. With the setting "holdToTalk", pressing it starts a recording and releasing it ends the recording, and the
/// focus stays where it is; a press shorter than 0.3 s counts as accidental and is discarded, and so is a recording
/// during which Escape is pressed. The setting takes effect at the next press. Main thread.
class HoldToTalk : public QObject
{
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds shortestHold{300};

    /// Starts a dictation; returns null when none has started.
    using Begin = std::function<std::weak_ptr<Dictation>(Dictation::Keyboard)>;

    /// All references must outlive this object.
    HoldToTalk(KeyboardShortcuts& shortcuts, UserDefaults& defaults, Clock& clock, Begin begin);
    /// A recording that is being held goes on.
    ~HoldToTalk() override;

private:
    void pressed();
    void released();
    void endHold();
    void followOtherKeys(KeyboardShortcuts& shortcuts);
    void watchEscape();
    void escapePressed();
    void escapeReleased();

    KeyboardShortcuts& shortcuts_;
    UserDefaults& defaults_;
    Clock& clock_;
    Begin begin_;
    KeyboardShortcuts::Registration keyDown_;
    KeyboardShortcuts::Registration keyUp_;
    /// The current press is a hold, whether or not its dictation is still running.
    bool isHold_ = false;
    std::weak_ptr<Dictation> held_;
    /// Escape with every subset of the shortcut's modifiers, any of which may still be held. Kept until Escape is up,
    /// so that none of it reaches the window in front.
    std::vector<KeyboardShortcuts::Registration> escape_;
    bool isEscapeDown_ = false;
};

} // namespace vantro
