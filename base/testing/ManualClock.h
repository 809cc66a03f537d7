#pragma once

#include "base/Clock.h"

#include <QPointer>
#include <QTimeZone>

#include <memory>
#include <vector>

namespace vantro::doubles {

/// A clock that only moves when the test advances it.
class ManualClock final : public Clock
{
public:
    [[nodiscard]] Instant now() const override { return now_; }
    [[nodiscard]] QDateTime wallClock() const override { return wallClock_; }
    [[nodiscard]] QCoro::Task<> sleepFor(std::chrono::milliseconds duration) override;
    void callAfter(std::chrono::milliseconds delay, QObject* context, std::function<void()> action) override;

    /// Runs everything that falls due, in order of time, including actions scheduled meanwhile.
    void advance(std::chrono::milliseconds duration);
    void setWallClock(const QDateTime& time) { wallClock_ = time; }
    /// The number of pending sleeps and actions.
    [[nodiscard]] std::size_t pending() const { return waiting_.size(); }

private:
    struct Waiting
    {
        Instant due;
        QPointer<QObject> context;
        std::function<void()> action;
    };

    Instant now_{std::chrono::hours(1)};
    QDateTime wallClock_{QDate(2024, 6, 1), QTime(12, 0), QTimeZone::utc()};
    std::vector<Waiting> waiting_;
    QObject self_;
};

} // namespace vantro::doubles
