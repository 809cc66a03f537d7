#include "vantro/models/TransferRate.h"

#include "vantro/models/ModelDownloadError.h"

#include <cmath>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto window = 5s;
constexpr auto sampleDistance = 100ms;
/// Rates over shorter spans are noise.
constexpr auto shortestSpan = 300ms;

} // namespace

QString TransferRate::timeText(std::chrono::seconds time)
{
    if (time < 1min)
        return tr("%1 s left").arg(time.count());
    if (time < 1h)
        return tr("%1 min left").arg(std::chrono::ceil<std::chrono::minutes>(time).count());
    const auto hours = std::chrono::floor<std::chrono::hours>(time);
    return tr("%1 h %2 min left")
        .arg(hours.count())
        .arg(std::chrono::floor<std::chrono::minutes>(time - hours).count());
}

void TransferRate::note(Instant now, qint64 receivedBytes)
{
    if (!samples_.empty() && receivedBytes < samples_.back().bytes)
        samples_.clear(); // restarted
    if (samples_.size() < 2 || now - samples_[samples_.size() - 2].at >= sampleDistance)
        samples_.push_back({now, receivedBytes});
    else
        samples_.back() = {now, receivedBytes};
    while (samples_.size() > 2 && now - samples_.front().at > window)
        samples_.pop_front();
}

std::optional<double> TransferRate::bytesPerSecond() const
{
    if (samples_.size() < 2 || samples_.back().at - samples_.front().at < shortestSpan)
        return std::nullopt;
    const std::chrono::duration<double> span = samples_.back().at - samples_.front().at;
    return static_cast<double>(samples_.back().bytes - samples_.front().bytes) / span.count();
}

QString TransferRate::text(qint64 remainingBytes) const
{
    const auto rate = bytesPerSecond();
    if (!rate)
        return {};
    const QString speed = tr("%1/s").arg(sizeText(static_cast<qint64>(*rate)));
    if (remainingBytes < 0 || *rate < 1)
        return speed;
    const auto left = std::chrono::seconds(std::llround(std::ceil(static_cast<double>(remainingBytes) / *rate)));
    return speed + QStringLiteral(", ") + timeText(left);
}

} // namespace vantro
