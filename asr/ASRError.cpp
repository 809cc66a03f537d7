#include "asr/ASRError.h"

#include <utility>

namespace vantro::asr {

ASRError::ASRError(Kind kind, std::string detail) : kind_(kind), detail_(std::move(detail)) {}

const char* ASRError::what() const noexcept
{
    switch (kind_) {
    case Kind::processingFailed:
        return "Speech recognition failed.";
    case Kind::unsupportedPlatform:
        return "This processor cannot run the Parakeet models.";
    case Kind::streamingConversionFailed:
        return "The audio could not be converted for recognition.";
    case Kind::fileAccessFailed:
        return "The audio file could not be read.";
    case Kind::encoderInstantiationFailed:
        return "The speech encoder could not be set up.";
    case Kind::notInitialized:
        return "The speech recogniser has no model loaded.";
    case Kind::invalidAudioData:
        return "The recording contains no usable audio.";
    case Kind::modelLoadFailed:
        return "Failed to load Parakeet CoreML models.";
    }
    return "Speech recognition failed.";
}

void failLoading(const std::string& detail)
{
    throw ASRError(ASRError::Kind::modelLoadFailed, detail);
}

} // namespace vantro::asr
