#include "asr/AsrManager.h"

#include "asr/ASRError.h"

#include <algorithm>
#include <new>
#include <utility>

namespace vantro::asr {

namespace {

constexpr Seconds frameDuration{0.08};
constexpr std::string_view wordStart = "\u2581";

std::string_view versionName(AsrModelVersion version)
{
    switch (version) {
    case AsrModelVersion::v2:
        return "v2";
    case AsrModelVersion::v3:
        return "v3";
    case AsrModelVersion::tdtCtc110m:
        return "tdtCtc110m";
    case AsrModelVersion::tdtJa:
        return "tdtJa";
    }
    return "unknown";
}

void appendPiece(std::string& text, std::string_view piece)
{
    for (std::size_t i = 0; i < piece.size();) {
        if (piece.substr(i).starts_with(wordStart)) {
            if (!text.empty())
                text += ' ';
            i += wordStart.size();
        } else {
            text += piece[i++];
        }
    }
}

} // namespace

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

ASRResult AsrManager::transcribe(std::span<const float> samples, TdtDecoderState& decoderState, const Options& options)
{
    if (asrModels_ == nullptr)
        throw ASRError(ASRError::Kind::notInitialized);
    const auto begun = std::chrono::steady_clock::now();
    try {
        const std::optional<TokenFilter> allowed = filterFor(options.language);
        const ChunkProcessor processor(samples, options.chunks, logger_);
        const auto tokens = processor.process(
            {*asrModels_, config_, allowed ? &*allowed : nullptr, &options.stop, options.onProgress}, decoderState);
        ASRResult result = makeResult(tokens, samples.size());
        result.processingTime = std::chrono::steady_clock::now() - begun;
        return result;
    } catch (const std::bad_alloc&) {
        throw ASRError(ASRError::Kind::processingFailed, "out of memory");
    }
}

std::optional<TokenFilter> AsrManager::filterFor(const std::optional<Language>& language) const
{
    if (!language)
        return std::nullopt;
    const AsrModelVersion version = asrModels_->configuration.version;
    if (version == AsrModelVersion::v3)
        return TokenFilter(asrModels_->vocabulary, scriptOf(*language));
    if (logger_)
        logger_("Ignoring `language` hint: script filtering requires the v3 joint decoder; loaded model is " +
                std::string(versionName(version)));
    return std::nullopt;
}

ASRResult AsrManager::makeResult(std::span<const DecodedToken> tokens, std::size_t sampleCount) const
{
    ASRResult result;
    result.duration = Seconds(static_cast<double>(sampleCount) / config_.sampleRate);
    auto& timings = result.tokenTimings.emplace();
    float sum = 0;
    for (const DecodedToken& token : tokens) {
        const std::string& piece = asrModels_->vocabulary[static_cast<std::size_t>(token.id)];
        appendPiece(result.text, piece);
        // A token without a duration still occupies its own frame.
        const std::int32_t length = config_.tdtConfig.includeTokenDuration ? std::max(token.duration, 1) : 1;
        timings.push_back({piece, token.id, std::min(token.frame * frameDuration, result.duration),
                           std::min((token.frame + length) * frameDuration, result.duration), token.confidence});
        sum += token.confidence;
    }
    if (!tokens.empty())
        result.confidence = sum / static_cast<float>(tokens.size());
    return result;
}

} // namespace vantro::asr
