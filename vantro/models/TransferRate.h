#pragma once

#include <QCoreApplication>
#include <QString>

#include <chrono>
#include <deque>
#include <optional>

namespace vantro {

/// The transfer rate over the last five seconds. Not thread-safe.
class TransferRate
{
    Q_DECLARE_TR_FUNCTIONS(TransferRate)
public:
    using Instant = std::chrono::steady_clock::time_point;

    /// @p receivedBytes: the total so far; the initial bytes of a resumed download do not count.
    void note(Instant now, qint64 receivedBytes);

    [[nodiscard]] std::optional<double> bytesPerSecond() const;
    /// "3.4 MiB/s, 20 s left"; without the time if @p remainingBytes is negative (unknown). Empty until a rate is
    /// known.
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
