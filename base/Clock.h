#pragma once

#include <QDateTime>
#include <QObject>
#include <qcoro/qcorotask.h>

#include <chrono>
#include <functional>

namespace vantro {

/// Time as the program sees it, so that a test can move it. Main thread only.
class Clock
{
public:
    using Instant = std::chrono::steady_clock::time_point;

    virtual ~Clock() = default;

    /// Monotonic, for durations.
    [[nodiscard]] virtual Instant now() const = 0;
    /// The calendar's time, for what is stored and shown.
    [[nodiscard]] virtual QDateTime wallClock() const = 0;

    [[nodiscard]] virtual QCoro::Task<> sleepFor(std::chrono::milliseconds duration) = 0;
    /// Calls @p action from the event loop unless @p context is destroyed before.
    virtual void callAfter(std::chrono::milliseconds delay, QObject* context, std::function<void()> action) = 0;
};

class SystemClock final : public Clock
{
public:
    [[nodiscard]] Instant now() const override;
    [[nodiscard]] QDateTime wallClock() const override;
    [[nodiscard]] QCoro::Task<> sleepFor(std::chrono::milliseconds duration) override;
    void callAfter(std::chrono::milliseconds delay, QObject* context, std::function<void()> action) override;
};

} // namespace vantro
