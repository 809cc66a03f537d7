#pragma once

#include <QDateTime>
#include <QObject>
#include <qcoro/qcorotask.h>

#include <chrono>
#include <functional>

namespace vantro {

/// The program's source of time, replaceable in tests. Main thread only.
class Clock
{
public:
    using Instant = std::chrono::steady_clock::time_point;

    virtual ~Clock() = default;

    /// Monotonic, for durations.
    [[nodiscard]] virtual Instant now() const = 0;
    /// Wall-clock time, for storage and display.
    [[nodiscard]] virtual QDateTime wallClock() const = 0;

    [[nodiscard]] virtual QCoro::Task<> sleepFor(std::chrono::milliseconds duration) = 0;
    /// Calls @p action from the event loop unless @p context has been destroyed by then.
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
