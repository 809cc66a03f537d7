#pragma once

#include "asr/ASRConfig.h"
#include "asr/ASRResult.h"
#include "asr/AsrModels.h"
#include "asr/ChunkProcessor.h"
#include "asr/Language.h"
#include "asr/StreamingAsr.h"
#include "asr/TdtDecoderState.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>

namespace vantro::asr {

/// The recogniser: transcribes recordings, with the time of every token. Transcriptions and streams may run at the same
/// time, in different threads.
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

    /// @p samples: 16 kHz mono, nominally -1..1. @p decoderState: must be fresh; the search's state at the end. Throws
    /// ASRError: notInitialized, invalidAudioData (shorter than 20 ms, or not finite), processingFailed.
    ASRResult transcribe(std::span<const float> samples, TdtDecoderState& decoderState, const Options& options) const;

    /// Begins a recording that is recognised while it is made; it may outlive the manager. Throws ASRError:
    /// notInitialized, processingFailed.
    [[nodiscard]] std::unique_ptr<StreamingAsr> stream(const StreamingAsr::Options& options) const;

    [[nodiscard]] const ASRConfig& config() const { return config_; }

private:
    ASRConfig config_;
    LogSink logger_;
    std::shared_ptr<const AsrModels> asrModels_;
};

} // namespace vantro::asr
