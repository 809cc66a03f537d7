#pragma once

#include <exception>
#include <string>

namespace vantro::asr {

/// All errors of the recogniser. what() is a sentence for the user; detail() is the technical reason, for logs.
class ASRError : public std::exception
{
public:
    enum class Kind {
        processingFailed,
        unsupportedPlatform,
        streamingConversionFailed,
        fileAccessFailed,
        encoderInstantiationFailed,
        notInitialized,
        invalidAudioData,
        modelLoadFailed,
    };

    explicit ASRError(Kind kind, std::string detail = {});

    [[nodiscard]] Kind kind() const { return kind_; }
    [[nodiscard]] const std::string& detail() const { return detail_; }
    [[nodiscard]] const char* what() const noexcept override;

private:
    Kind kind_;
    std::string detail_;
};

/// Throws modelLoadFailed.
[[noreturn]] void failLoading(const std::string& detail);

} // namespace vantro::asr
