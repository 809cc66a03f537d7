#include "vantro/fluid/BoostedStream.h"

#include "asr/ASRError.h"
#include "vantro/fluid/ErrorDetail.h"

#include <chrono>
#include <utility>

namespace vantro {

BoostedStream::BoostedStream(const asr::AsrManager& manager, const asr::StreamingAsr::Options& options,
                             const std::optional<QFuture<FluidVocabularyBuild>>& build)
    : stream_(manager.stream(options))
    , hasVocabulary_(build.has_value())
{
    if (!build)
        return;
    build_ = build->result();
    if (build_.pipeline != nullptr)
        spotting_ = std::make_unique<asr::CtcSpotting>(build_.pipeline->spotter, stream_->pool());
}

/// Does something that boosting needs, and gives boosting up if it fails.
template <typename Action>
void BoostedStream::spot(Action action)
{
    if (spotting_ == nullptr)
        return;
    try {
        action(*spotting_);
    } catch (const std::exception& error) {
        build_.problem = detailOf(error);
        spotting_.reset();
    }
}

// The recogniser's windows are queued before those of the search: they are followed by more work.
void BoostedStream::append(std::span<const float> samples)
{
    stream_->append(samples);
    spot([samples](asr::CtcSpotting& spotting) { spotting.append(samples); });
}

void BoostedStream::speculate()
{
    stream_->speculate();
    spot([](asr::CtcSpotting& spotting) { spotting.speculate(); });
}

FluidTranscript BoostedStream::finish(const asr::StreamingAsr::Finish& options)
{
    const auto begun = std::chrono::steady_clock::now();
    speculate();
    FluidTranscript transcript;
    transcript.hasVocabulary = hasVocabulary_;
    transcript.result = stream_->finish(options);
    spot([&](asr::CtcSpotting& spotting) {
        const asr::CtcLogProbabilities logProbs = spotting.finish(options.stop);
        transcript.spotting = std::chrono::steady_clock::now() - begun;
        transcript.notLookedFor = build_.pipeline->notLookedFor;
        const auto& timings = transcript.result.tokenTimings;
        if (!timings)
            return;
        asr::RescoreOutput output = build_.pipeline->rescorer->rescore(transcript.result.text, *timings, logProbs, {});
        transcript.result.text = std::move(output.text);
        transcript.result.tokenTimings = std::move(output.timings);
        transcript.considered = std::move(output.considered);
        transcript.replacements = output.replacements.size();
    });
    if (options.stop.stop_requested())
        throw asr::ASRError(asr::ASRError::Kind::processingFailed, "stopped");
    transcript.skipped = build_.problem;
    return transcript;
}

} // namespace vantro
