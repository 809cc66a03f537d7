#pragma once

#include "asr/ASRConfig.h"
#include "asr/ASRResult.h"
#include "asr/AsrModels.h"
#include "asr/ChunkProcessor.h"
#include "asr/Language.h"
#include "asr/WindowPool.h"
#include "asr/WindowSearch.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <stop_token>
#include <thread>

namespace vantro::asr {

/// Recognises a recording while it is made. Each window is encoded and searched as soon as its samples are there, so
/// that finish() only has the last one to compute. The result does not depend on the sizes in which samples come, nor
/// on when: it is that of AsrManager::transcribe() for the whole recording.
///
/// One thread calls all functions. Nothing is computed there: append() copies samples and returns. Windows are encoded
/// by one background thread, and by all cores once hurry() or finish() is called; another thread searches them.
class StreamingAsr
{
public:
    struct Options
    {
        std::optional<Language> language; ///< excludes letters of other scripts; v3 model only
        ChunkProcessor::Options chunks;
        bool isLive = true;                       ///< false: nothing is computed before hurry()
        std::function<void()> onBackgroundThread; ///< called there first, for instance to lower its priority
        /// Called with what was recognised as if the recording ended after a speculate(); on the searching thread.
        std::function<void(const ASRResult&)> onSpeculated = {};
    };

    /// @p config: with the model's blank and durations (AsrManager::config()). @p logger: any thread; may be empty.
    /// Throws ASRError.
    StreamingAsr(std::shared_ptr<const AsrModels> models, ASRConfig config, const Options& options, LogSink logger);
    /// Gives up what is in progress, which takes as long as one operation of the encoder's graph.
    ~StreamingAsr();
    StreamingAsr(const StreamingAsr&) = delete;
    StreamingAsr& operator=(const StreamingAsr&) = delete;

    /// @p samples: 16 kHz mono, nominally -1..1, in pieces of any size.
    void append(std::span<const float> samples);

    /// Recognises in the background as if the recording ended here. finish() has the result if nothing is appended
    /// until then; append() drops it.
    void speculate();
    /// Uses all cores from now on.
    void hurry();

    /// For other work on the same recording, so that both share its threads. The caller of the other functions calls
    /// it, too.
    [[nodiscard]] WindowPool& pool() { return pool_; }

    struct Finish
    {
        std::function<void(float)> onProgress; ///< 0..1, on the calling thread; may be empty
        std::stop_token stop;                  ///< throws processingFailed at once
    };
    /// Blocks until everything is recognised. Throws ASRError: invalidAudioData (shorter than 20 ms, or not finite),
    /// processingFailed.
    ASRResult finish(const Finish& options);
    /// The search's state after finish().
    [[nodiscard]] const TdtDecoderState& decoderState() const { return ending_->transcript.state; }

private:
    /// From the last complete window to the end of the recording.
    struct Ending
    {
        std::stop_source stop;
        std::int64_t sampleCount = 0;
        WindowSearch::Transcript transcript; ///< this and the error: the searching thread's until it is over
        std::exception_ptr error;
        bool isOver = false;
    };
    struct Task
    {
        std::optional<Window> window;
        std::future<EncoderFrames> frames;
        std::shared_ptr<Ending> ending; ///< null for a window that others follow
    };

    void submit(std::optional<WindowSamples> window, const std::stop_token& stop, std::shared_ptr<Ending> ending);
    void dropEnding();
    void waitForEnding(const Finish& options);
    [[nodiscard]] ASRResult result(const Ending& ending) const;
    void work();
    [[nodiscard]] std::optional<Task> nextTask();
    void searchWindow(Task& task);
    void searchEnding(Task& task);
    void search(Task& task, WindowSearch::Transcript& transcript, const std::stop_token& stop);

    std::shared_ptr<const AsrModels> models_;
    ASRConfig config_;
    std::optional<TokenFilter> allowed_;
    std::function<void(const ASRResult&)> onSpeculated_;
    ChunkProcessor chunks_;
    std::stop_source stop_;
    std::size_t windows_ = 0; ///< submitted
    std::shared_ptr<Ending> ending_;

    // The searching thread's.
    WindowSearch search_;
    WindowSearch::Transcript transcript_;
    std::exception_ptr error_;

    std::mutex lock_; ///< guards what follows and Ending::isOver
    std::condition_variable_any changed_;
    std::deque<Task> tasks_;
    std::size_t searched_ = 0; ///< windows
    bool isAbandoned_ = false;

    std::jthread searcher_;
    WindowPool pool_; ///< last: its end releases the searching thread from waiting for frames
};

} // namespace vantro::asr
