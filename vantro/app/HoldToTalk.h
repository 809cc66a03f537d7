#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "base/Clock.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <optional>

namespace vantro {

class AudioRecorder;

/// The two ways to use the dictation's shortcut. By default its release opens the launcher, which takes the keyboard.
/// With the setting "holdToTalk" its press starts a recording that its release ends, and the keyboard stays where it
/// is; what is released within 0.3 s was an accident and is thrown away. The setting counts from the next press on.
/// Main thread.
class HoldToTalk : public QObject
{
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds shortestHold{300};

    struct Actions
    {
        std::function<void()> open;      ///< the launcher, with the keyboard
        std::function<void()> openAside; ///< the launcher, the keyboard stays where it is
        std::function<void()> stop;
        std::function<void()> cancel;
    };

    /// Everything outlives this object.
    HoldToTalk(KeyboardShortcuts& shortcuts, AudioRecorder& recorder, UserDefaults& defaults, Clock& clock,
               Actions actions);

private:
    void pressed();
    void released();
    void endHold();

    AudioRecorder& recorder_;
    UserDefaults& defaults_;
    Clock& clock_;
    Actions actions_;
    KeyboardShortcuts::Registration keyDown_;
    KeyboardShortcuts::Registration keyUp_;
    /// While the recording that a press has started runs.
    std::optional<Clock::Instant> heldSince_;
    /// The press was taken for a hold, whatever has become of its recording.
    bool isHold_ = false;
};

} // namespace vantro
