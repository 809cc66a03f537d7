#pragma once

#include "base/Clock.h"
#include "platform/KeyEventPoster.h"

#include <QObject>

namespace vantro {

/// Looks once a second whether another program keeps the keyboard to itself, as lockers do that know no D-Bus. Main
/// thread.
class KeyboardWatch final : public QObject
{
    Q_OBJECT
public:
    /// Both must outlive this object.
    KeyboardWatch(const KeyEventPoster& keyEvents, Clock& clock) : keyEvents_(keyEvents), clock_(clock) {}

    /// To be called once.
    void begin();
    void end() { isOver_ = true; }

Q_SIGNALS:
    /// For three seconds, which no program but a locker or a menu does; menus do not count.
    void keyboardTaken();

private:
    void look();

    const KeyEventPoster& keyEvents_;
    Clock& clock_;
    int timesTaken_ = 0; ///< in a row
    bool isOver_ = false;
};

} // namespace vantro
