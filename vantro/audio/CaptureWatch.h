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

    /// A recording begins: nothing has stalled.
    void clear() { setStalled(false); }
    /// A capture has been started, or started again. What had stalled is so until the first block.
    void begin();
    void end() { nextLook_.reset(); }
    /// Audio thread.
    void noteBlock() { blockCount_.fetch_add(1, std::memory_order_relaxed); }

    [[nodiscard]] bool isStalled() const { return isStalled_; }

Q_SIGNALS:
    void isStalledChanged();
    /// Waiting longer is no use. Repeated until begin() or end() is called, or blocks come again.
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
