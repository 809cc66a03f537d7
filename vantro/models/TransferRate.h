#pragma once

#include <QCoreApplication>
#include <QString>

#include <chrono>
#include <deque>
#include <optional>

namespace vantro {

/// How quickly something arrives, over the last seconds. One thread.
class TransferRate
{
    Q_DECLARE_TR_FUNCTIONS(TransferRate)
public:
    using Instant = std::chrono::steady_clock::time_point;

    /// @p receivedBytes: the total so far; what a resumed download had before does not count as speed.
    void note(Instant now, qint64 receivedBytes);

    [[nodiscard]] std::optional<double> bytesPerSecond() const;
    /// "3.4 MiB/s, 20 s left"; the second part only when @p remainingBytes is known (not negative). Empty in the first
    /// moments.
    [[nodiscard]] QString text(qint64 remainingBytes) const;

private:
    struct Sample
    {
        Instant at;
        qint64 bytes;
    };

    static QString timeText(std::chrono::seconds time);

    std::deque<Sample> samples_;
};

} // namespace vantro
