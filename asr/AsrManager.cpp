#include "asr/AsrManager.h"

#include "asr/ASRError.h"

#include <algorithm>
#include <new>
#include <utility>

namespace vantro::asr {

AsrManager::AsrManager(ASRConfig config, LogSink logger) : config_(std::move(config)), logger_(std::move(logger))
{
    config_.parallelChunkConcurrency = std::max(config_.parallelChunkConcurrency, 1);
}

void AsrManager::initialize(std::shared_ptr<const AsrModels> models)
{
    asrModels_ = std::move(models);
    const AsrModelConfiguration& model = asrModels_->configuration;
    config_.encoderHiddenSize = model.encoderHiddenSize;
    config_.tdtConfig.blankId = model.blankId;
    config_.tdtConfig.durationBins = model.durationBins;
    config_.tdtConfig.maxSymbolsPerStep = model.maxSymbolsPerStep;
}

ASRResult AsrManager::transcribe(std::span<const float> samples, TdtDecoderState& decoderState,
                                 const Options& options) const
{
    try {
        const auto whole = stream({options.language, options.chunks, false, {}});
        whole->append(samples);
        ASRResult result = whole->finish({options.onProgress, options.stop});
        decoderState = whole->decoderState();
        return result;
    } catch (const std::bad_alloc&) {
        throw ASRError(ASRError::Kind::processingFailed, "out of memory");
    }
}

std::unique_ptr<StreamingAsr> AsrManager::stream(const StreamingAsr::Options& options) const
{
    if (asrModels_ == nullptr)
        throw ASRError(ASRError::Kind::notInitialized);
    return std::make_unique<StreamingAsr>(asrModels_, config_, options, logger_);
}

} // namespace vantro::asr
