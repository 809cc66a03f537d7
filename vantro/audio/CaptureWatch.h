#pragma once

#include "base/Clock.h"

#include <QObject>

#include <atomic>
#include <memory>

namespace vantro {

/// Notices when a running capture delivers no more blocks, which no sound server reports. Main thread, except
/// noteBlock().
class CaptureWatch final : public QObject
{
    Q_OBJECT
public:
    /// How long a capture may pause.
    static constexpr std::chrono::milliseconds stallLimit{1000};
    /// How long it may take to begin: a headset changes its profile first.
    static constexpr std::chrono::milliseconds startLimit{5000};

    explicit CaptureWatch(Clock& clock) : clock_(clock) {}

    /// Call when a recording begins: nothing has stalled yet.
    void clear() { setStalled(false); }
    /// Call when a capture has been started or restarted. A stalled one counts as stalled until its first block.
    void begin();
    void end() { nextLook_.reset(); }
    /// Audio thread.
    void noteBlock() { blockCount_.fetch_add(1, std::memory_order_relaxed); }

    [[nodiscard]] bool isStalled() const { return isStalled_; }

Q_SIGNALS:
    void isStalledChanged();
    /// Waiting longer is of no use. Emitted again and again until begin() or end() is called or blocks come.
    void stalledTooLong();

private:
    void look();
    void lookAgain();
    void setStalled(bool stalled);

    Clock& clock_;
    std::atomic<quint64> blockCount_ = 0;
    quint64 seenCount_ = 0;
    bool hasBegun_ = false; ///< whether the present capture has delivered a block
    bool isStalled_ = false;
    Clock::Instant lastProgress_;
    std::unique_ptr<QObject> nextLook_; ///< its destruction cancels it
};

} // namespace vantro
