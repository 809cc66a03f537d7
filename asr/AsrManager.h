#pragma once

#include "asr/ASRConfig.h"
#include "asr/ASRResult.h"
#include "asr/AsrModels.h"
#include "asr/ChunkProcessor.h"
#include "asr/Language.h"
#include "asr/TdtDecoderState.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>

namespace vantro::asr {

/// The recogniser: transcribes whole recordings, with the time of every token. One transcription at a time, on the
/// caller's thread and its own workers.
class AsrManager
{
public:
    explicit AsrManager(ASRConfig config = {}, LogSink logger = {});

    /// Takes over the models' blank and durations.
    void initialize(std::shared_ptr<const AsrModels> models);

    struct Options
    {
        std::optional<Language> language;      ///< excludes letters of other scripts; v3 model only
        std::function<void(float)> onProgress; ///< 0..1, on the calling thread; may be empty
        ChunkProcessor::Options chunks;
        std::stop_token stop; ///< stops this transcription, which throws processingFailed
    };

    /// @p samples: 16 kHz mono, nominally -1..1. @p decoderState must be fresh for a new recording. Throws ASRError:
    /// notInitialized, invalidAudioData (shorter than 20 ms, or not finite), processingFailed.
    ASRResult transcribe(std::span<const float> samples, TdtDecoderState& decoderState, const Options& options);

    [[nodiscard]] const ASRConfig& config() const { return config_; }

private:
    [[nodiscard]] std::optional<TokenFilter> filterFor(const std::optional<Language>& language) const;
    [[nodiscard]] ASRResult makeResult(std::span<const DecodedToken> tokens, std::size_t sampleCount) const;

    ASRConfig config_;
    LogSink logger_;
    std::shared_ptr<const AsrModels> asrModels_;
};

} // namespace vantro::asr
