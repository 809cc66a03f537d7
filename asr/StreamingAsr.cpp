#include "asr/StreamingAsr.h"

#include "asr/ASRError.h"
#include "asr/Pieces.h"

#include <algorithm>
#include <chrono>
#include <new>
#include <string_view>
#include <utility>

namespace vantro::asr {

namespace {

constexpr Seconds frameDuration{0.08};

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

std::optional<TokenFilter> filterFor(const std::optional<Language>& language, const AsrModels& models,
                                     const LogSink& logger)
{
    if (!language)
        return std::nullopt;
    const AsrModelVersion version = models.configuration.version;
    if (version == AsrModelVersion::v3)
        return TokenFilter(models.vocabulary, scriptOf(*language));
    if (logger)
        logger("Ignoring `language` hint: script filtering requires the v3 joint decoder; loaded model is " +
               std::string(versionName(version)));
    return std::nullopt;
}

} // namespace

StreamingAsr::StreamingAsr(std::shared_ptr<const AsrModels> models, ASRConfig config, const Options& options,
                           LogSink logger)
    : models_(std::move(models))
    , config_(std::move(config))
    , allowed_(filterFor(options.language, *models_, logger))
    , onSpeculated_(options.onSpeculated)
    , chunks_(options.chunks, config_.melChunkContext)
    , search_(*models_, config_.tdtConfig, allowed_ ? &*allowed_ : nullptr, logger)
    , pool_(models_->network(), {config_.parallelChunkConcurrency, options.isLive, options.onBackgroundThread, logger})
{
    try {
        searcher_ = std::jthread([this] { work(); });
    } catch (const std::system_error&) {
        throw ASRError(ASRError::Kind::processingFailed, "no thread can be started");
    }
}

StreamingAsr::~StreamingAsr()
{
    stop_.request_stop();
    dropEnding();
    {
        const std::lock_guard guard(lock_);
        isAbandoned_ = true;
    }
    changed_.notify_all();
}

void StreamingAsr::append(std::span<const float> samples)
{
    if (samples.empty())
        return;
    dropEnding();
    // In pieces, so that those of a long recording are not all held twice.
    constexpr std::size_t piece = ChunkProcessor::maximumWindowSamples;
    for (; !samples.empty(); samples = samples.subspan(std::min(piece, samples.size()))) {
        chunks_.append(samples.first(std::min(piece, samples.size())));
        while (auto window = chunks_.next())
            submit(std::move(window), stop_.get_token(), nullptr);
    }
}

void StreamingAsr::submit(std::optional<WindowSamples> window, const std::stop_token& stop,
                          std::shared_ptr<Ending> ending)
{
    Task task;
    task.ending = std::move(ending);
    if (window) {
        task.window = window->window;
        task.frames = pool_.encode(std::move(window->samples), stop);
        ++windows_;
    }
    {
        const std::lock_guard guard(lock_);
        tasks_.push_back(std::move(task));
    }
    changed_.notify_all();
}

void StreamingAsr::speculate()
{
    if (ending_ != nullptr)
        return;
    ending_ = std::make_shared<Ending>();
    ending_->sampleCount = chunks_.totalSamples();
    submit(chunks_.rest(), ending_->stop.get_token(), ending_);
}

void StreamingAsr::dropEnding()
{
    if (ending_ != nullptr)
        ending_->stop.request_stop();
    ending_.reset();
}

void StreamingAsr::hurry()
{
    pool_.hurry();
}

ASRResult StreamingAsr::finish(const Finish& options)
{
    const auto begun = std::chrono::steady_clock::now();
    try {
        speculate();
        hurry();
        waitForEnding(options);
        ASRResult found = result(*ending_);
        found.processingTime = std::chrono::steady_clock::now() - begun;
        return found;
    } catch (const std::bad_alloc&) {
        throw ASRError(ASRError::Kind::processingFailed, "out of memory");
    }
}

void StreamingAsr::waitForEnding(const Finish& options)
{
    std::unique_lock guard(lock_);
    std::size_t told = searched_;
    while (!ending_->isOver) {
        changed_.wait(guard, options.stop, [&] { return ending_->isOver || searched_ > told; });
        if (options.stop.stop_requested())
            throw ASRError(ASRError::Kind::processingFailed, "stopped");
        told = searched_;
        guard.unlock();
        if (options.onProgress)
            options.onProgress(static_cast<float>(told) / static_cast<float>(windows_));
        guard.lock();
    }
    if (ending_->error)
        std::rethrow_exception(ending_->error);
}

ASRResult StreamingAsr::result(const Ending& ending) const
{
    ASRResult result;
    result.duration = Seconds(static_cast<double>(ending.sampleCount) / config_.sampleRate);
    auto& timings = result.tokenTimings.emplace();
    float sum = 0;
    for (const DecodedToken& token : ending.transcript.tokens) {
        const std::string& piece = models_->vocabulary[static_cast<std::size_t>(token.id)];
        appendPiece(result.text, piece);
        // A token without a duration still occupies its own frame.
        const std::int32_t length = config_.tdtConfig.includeTokenDuration ? std::max(token.duration, 1) : 1;
        timings.push_back({piece, token.id, std::min(token.frame * frameDuration, result.duration),
                           std::min((token.frame + length) * frameDuration, result.duration), token.confidence});
        sum += token.confidence;
    }
    if (!timings.empty())
        result.confidence = sum / static_cast<float>(timings.size());
    return result;
}

void StreamingAsr::work()
{
    while (std::optional<Task> task = nextTask()) {
        if (task->ending != nullptr)
            searchEnding(*task);
        else
            searchWindow(*task);
    }
}

/// Waits for a task; nothing at the end.
std::optional<StreamingAsr::Task> StreamingAsr::nextTask()
{
    std::unique_lock guard(lock_);
    changed_.wait(guard, [this] { return isAbandoned_ || !tasks_.empty(); });
    if (isAbandoned_)
        return std::nullopt;
    Task task = std::move(tasks_.front());
    tasks_.pop_front();
    return task;
}

void StreamingAsr::searchWindow(Task& task)
{
    try {
        search(task, transcript_, stop_.get_token());
    } catch (...) {
        if (error_ == nullptr)
            error_ = std::current_exception();
    }
    {
        const std::lock_guard guard(lock_);
        ++searched_;
    }
    changed_.notify_all();
}

void StreamingAsr::searchEnding(Task& task)
{
    Ending& ending = *task.ending;
    try {
        if (error_ != nullptr)
            std::rethrow_exception(error_);
        ending.transcript = transcript_;
        search(task, ending.transcript, ending.stop.get_token());
        search_.close(ending.transcript, ending.stop.get_token());
        if (onSpeculated_ && !ending.stop.stop_requested())
            onSpeculated_(result(ending));
    } catch (...) {
        ending.error = std::current_exception();
    }
    {
        const std::lock_guard guard(lock_);
        ending.isOver = true;
        searched_ += task.window ? 1 : 0;
    }
    changed_.notify_all();
}

void StreamingAsr::search(Task& task, WindowSearch::Transcript& transcript, const std::stop_token& stop)
{
    if (task.window)
        search_.add(transcript, *task.window, task.frames.get(), stop);
}

} // namespace vantro::asr
