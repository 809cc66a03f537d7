#pragma once

#include "vantro/models/TranscriptionProviding.h"

#include <QString>

#include <chrono>
#include <vector>

namespace vantro {

/// A piece of a transcript that is read at once, such as a subtitle.
struct Caption
{
    std::chrono::milliseconds start{};
    std::chrono::milliseconds end{};
    QString text;
};

/// Divides a transcript at the ends of sentences, at pauses and where a piece would be too long to be read.
[[nodiscard]] std::vector<Caption> captionsFrom(const std::vector<TranscribedToken>& tokens);

/// The file formats of subtitles: SubRip and WebVTT.
[[nodiscard]] QString subRip(const std::vector<Caption>& captions);
[[nodiscard]] QString webVtt(const std::vector<Caption>& captions);

} // namespace vantro
