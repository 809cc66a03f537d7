#include "vantro/fluid/TailCoverage.h"

#include "base/SampleFormat.h"

#include <algorithm>

namespace vantro {

namespace {

QString tenths(asr::Seconds seconds)
{
    return QString::number(seconds.count(), 'f', 1);
}

} // namespace

TailCoverage TailCoverage::of(std::size_t sampleCount, const asr::ASRResult& result)
{
    TailCoverage coverage;
    coverage.audio = durationOf(sampleCount);
    if (result.tokenTimings && !result.tokenTimings->empty())
        coverage.reach = std::ranges::max(*result.tokenTimings, {}, &asr::TokenTiming::endTime).endTime;
    const asr::Seconds reached = std::clamp(coverage.reach.value_or(asr::Seconds(0)), asr::Seconds(0), coverage.audio);
    coverage.uncovered = coverage.audio - reached;
    return coverage;
}

QString TailCoverage::message(const QString& label, bool hasText) const
{
    const QString reached = tenths(reach.value_or(asr::Seconds(0)));
    if (!isSuspicious())
        return QStringLiteral("Tail coverage OK [%1]: audio %2s, transcript reaches %3s")
            .arg(label, tenths(audio), reached);
    return QStringLiteral("SUSPECTED TAIL LOSS [%1]: audio %2s but transcript reaches only %3s (%4s uncovered). ")
               .arg(label, tenths(audio), reached, tenths(uncovered)) +
           (hasText ? QStringLiteral("Release build: audio not retained.")
                    : QStringLiteral("Empty transcript — treated as silence, nothing preserved."));
}

} // namespace vantro
