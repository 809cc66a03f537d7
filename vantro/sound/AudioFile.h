#pragma once

#include "base/Error.h"

#include <QString>

#include <vector>

namespace vantro {

class AudioFileError : public Error
{
public:
    using Error::Error;
};

/// A recording read from a file.
struct AudioFile
{
    /// Mono, 16,000 samples a second, nominally -1..1.
    std::vector<float> samples;

    /// Reads any format that libsndfile supports (WAV, FLAC, OGG, MP3, ...), at any sample rate and channel count; "-"
    /// is standard input. Throws AudioFileError, which names the file and the problem.
    static AudioFile read(const QString& path);
};

} // namespace vantro
