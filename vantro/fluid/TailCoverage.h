#pragma once

#include "asr/ASRResult.h"

#include <QString>

#include <cstddef>
#include <optional>

namespace vantro {

/// How much of a recording's end its transcript does not cover. Only logged.
struct TailCoverage
{
    asr::Seconds audio{};
    std::optional<asr::Seconds> reach; ///< the last token's end; nullopt without token timings
    asr::Seconds uncovered{};

    static TailCoverage of(std::size_t sampleCount, const asr::ASRResult& result);

    [[nodiscard]] bool isSuspicious() const { return uncovered > asr::Seconds(1.5); }
    /// The log line; @p label identifies the recording.
    [[nodiscard]] QString message(const QString& label, bool hasText) const;
};

} // namespace vantro
