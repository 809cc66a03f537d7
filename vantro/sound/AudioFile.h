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

    /// Reads WAV, FLAC, OGG, MP3 and whatever else libsndfile knows, at any rate and with any number of channels.
    /// @p path "-" is standard input. Throws AudioFileError, saying what was wrong with which file.
    static AudioFile read(const QString& path);
};

} // namespace vantro
