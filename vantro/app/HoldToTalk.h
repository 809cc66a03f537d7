#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "base/Clock.h"
#include "base/UserDefaults.h"
#include "vantro/app/Dictation.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

namespace vantro {

/// The two ways to use the dictation's shortcut. By default its release opens the launcher, which takes the keyboard.
/// With the setting "holdToTalk" its press starts a recording that its release ends, and the keyboard stays where it
/// is; what is released within 0.3 s was an accident and is thrown away. The setting counts from the next press on.
/// Main thread.
class HoldToTalk : public QObject
{
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds shortestHold{300};

    /// Begins a dictation, unless one is under way.
    using Begin = std::function<std::weak_ptr<Dictation>(Dictation::Keyboard)>;

    /// Everything outlives this object.
    HoldToTalk(KeyboardShortcuts& shortcuts, UserDefaults& defaults, Clock& clock, Begin begin);

private:
    void pressed();
    void released();
    void endHold();

    UserDefaults& defaults_;
    Clock& clock_;
    Begin begin_;
    KeyboardShortcuts::Registration keyDown_;
    KeyboardShortcuts::Registration keyUp_;
    /// The press was taken for a hold, whatever has become of its dictation.
    bool isHold_ = false;
    std::weak_ptr<Dictation> held_;
};

} // namespace vantro
