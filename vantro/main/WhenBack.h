#pragma once

#include "base/Clock.h"
#include "platform/KeyEventPoster.h"
#include "platform/SessionState.h"

#include <functional>
#include <memory>

namespace vantro {

/// Shows nothing to a locked screen. Main thread.
class WhenBack final : public QObject
{
    Q_OBJECT
public:
    /// All references must outlive this object.
    WhenBack(const SessionState& session, const KeyEventPoster& keyEvents, Clock& clock);

    /// Calls @p action at once, or when the user is back; not if another call comes before that.
    void run(std::function<void()> action);

private:
    void look();

    const SessionState& session_;
    const KeyEventPoster& keyEvents_;
    Clock& clock_;
    std::function<void()> waiting_;
    std::unique_ptr<QObject> nextLook_; ///< destroying it stops it
};

} // namespace vantro
