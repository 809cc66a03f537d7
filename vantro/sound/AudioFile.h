#pragma once

#include "base/Error.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <span>
#include <vector>

namespace vantro {

/// A file cannot be read or written as audio.
class AudioFileError : public Error
{
public:
    using Error::Error;
};

/// A recording read from a file. Any thread.
struct AudioFile
{
    /// Mono, 16,000 samples a second, nominally -1..1.
    std::vector<float> samples;

    /// Reads any format that libsndfile supports (WAV, FLAC, OGG, MP3, ...), at any sample rate and channel count; "-"
    /// is standard input. Throws AudioFileError, which names the file and the problem.
    static AudioFile read(const QString& path);
    /// How long the recording in a file is, by its header. Zero when it cannot be read.
    static std::chrono::milliseconds duration(const QString& path);
};

/// The contents of a FLAC file with @p samples (16 kHz mono, nominally -1..1; beyond that they are clipped) in 16 bits.
/// Throws AudioFileError.
[[nodiscard]] QByteArray flacOf(std::span<const float> samples);

} // namespace vantro
