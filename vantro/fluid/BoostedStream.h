#pragma once

#include "asr/AsrManager.h"
#include "vantro/fluid/FluidVocabularyPipeline.h"

#include <QFuture>

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace vantro {

/// A transcript, and what became of the user's words in it.
struct FluidTranscript
{
    asr::ASRResult result; ///< its text has the terms that were written
    bool hasVocabulary = false;
    std::vector<asr::ConsideredTerm> considered;
    QStringList notLookedFor; ///< as in the pipeline
    std::size_t replacements = 0;
    QString skipped;                      ///< why no term could be written; empty if they could
    std::optional<asr::Seconds> spotting; ///< how long the end of the recording took
};

/// Recognises a recording and, in the same threads, searches it for the user's words. A search that fails does not fail
/// the transcription. One thread.
class BoostedStream
{
public:
    /// @p build: the pipeline, which another thread may still be building: waits for it. Nothing if there are no words.
    /// Throws asr::ASRError.
    BoostedStream(const asr::AsrManager& manager, const asr::StreamingAsr::Options& options,
                  const std::optional<QFuture<FluidVocabularyBuild>>& build);

    /// As in asr::StreamingAsr.
    void append(std::span<const float> samples);
    void speculate();
    void hurry() { stream_->hurry(); }
    FluidTranscript finish(const asr::StreamingAsr::Finish& options);

private:
    template <typename Action>
    void spot(Action action);

    std::unique_ptr<asr::StreamingAsr> stream_;
    bool hasVocabulary_;
    FluidVocabularyBuild build_;
    std::unique_ptr<asr::CtcSpotting> spotting_; ///< null without words or after a failure; uses the stream's threads
};

} // namespace vantro
