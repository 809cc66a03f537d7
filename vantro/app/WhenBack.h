#pragma once

#include "base/Clock.h"
#include "platform/KeyEventPoster.h"
#include "platform/SessionState.h"

#include <QObject>

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace vantro {

/// Shows nothing to a locked screen. Main thread.
class WhenBack final : public QObject
{
public:
    /// Shows something. Returns how long reading it takes.
    using Tell = std::function<std::chrono::milliseconds()>;

    /// All references must outlive this object.
    WhenBack(const SessionState& session, const KeyEventPoster& keyEvents, Clock& clock);

    /// Calls @p tell at once, or when the user is back: what has waited until then comes one after the other.
    void run(Tell tell);

private:
    void look();
    void lookAfter(std::chrono::milliseconds delay);

    const SessionState& session_;
    const KeyEventPoster& keyEvents_;
    Clock& clock_;
    std::deque<Tell> waiting_;
    std::optional<Clock::Instant> toldAt_; ///< the latest
    std::unique_ptr<QObject> nextLook_;    ///< destroying it stops it
};

} // namespace vantro
