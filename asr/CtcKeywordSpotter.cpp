#include "asr/CtcKeywordSpotter.h"

#include "asr/ASRError.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantro::asr {

namespace {

ChunkProcessor::Options layoutOf(const CtcKeywordSpotter& spotter)
{
    ChunkProcessor::Options options;
    options.overlapSeconds = static_cast<double>(spotter.chunkOverlapSamples) / spotter.sampleRate;
    options.windowSamples = spotter.maxModelSamples;
    return options;
}

std::size_t frameOf(std::int64_t sample)
{
    return static_cast<std::size_t>(sample / ChunkProcessor::frameSamples);
}

} // namespace

CtcKeywordSpotter::CtcKeywordSpotter(std::shared_ptr<const CtcModel> ctcModel)
    : model(std::move(ctcModel))
    , blankId(model->blankId())
{
}

void CtcKeywordSpotter::append(CtcLogProbabilities& result, const EncoderFrames& scores, std::size_t begin,
                               std::size_t end) const
{
    const std::size_t classes = scores.values.size() / scores.frames;
    const auto blank = static_cast<std::size_t>(blankId);
    result.classes = classes;
    result.frames += end - begin;
    for (std::size_t frame = begin; frame < end; ++frame) {
        const auto source = std::span(scores.values).subspan(frame * classes, classes);
        const std::size_t first = result.values.size();
        for (std::size_t i = 0; i < classes; ++i)
            result.values.push_back((source[i] - (i == blank ? blankBias : 0.0F)) / temperature);
        const auto values = std::span(result.values).subspan(first);
        const float largest = *std::ranges::max_element(values);
        double sum = 0;
        for (const float value : values)
            sum += static_cast<double>(std::exp(value - largest));
        const float normaliser = largest + static_cast<float>(std::log(sum));
        for (float& value : values)
            value -= normaliser;
    }
}

CtcSpotting::CtcSpotting(std::shared_ptr<const CtcKeywordSpotter> spotter, WindowPool& pool)
    : spotter_(std::move(spotter))
    , pool_(pool)
    , chunks_(layoutOf(*spotter_), false)
{
}

CtcSpotting::~CtcSpotting()
{
    stop_.request_stop();
    dropEnding();
}

CtcSpotting::Part CtcSpotting::submit(WindowSamples window, const std::stop_token& stop)
{
    return {window.window, pool_.encode(spotter_->model->network(), std::move(window.samples), stop, spotter_)};
}

void CtcSpotting::append(std::span<const float> samples)
{
    if (samples.empty())
        return;
    dropEnding();
    while (!samples.empty()) {
        const auto piece = samples.first(std::min(samples.size(), static_cast<std::size_t>(spotter_->maxModelSamples)));
        chunks_.append(piece);
        samples = samples.subspan(piece.size());
        while (auto window = chunks_.next())
            parts_.push_back(submit(std::move(*window), stop_.get_token()));
    }
}

void CtcSpotting::speculate()
{
    if (std::exchange(hasEnding_, true))
        return;
    stopEnding_ = std::stop_source();
    if (auto rest = chunks_.rest())
        ending_ = submit(std::move(*rest), stopEnding_.get_token());
}

void CtcSpotting::dropEnding()
{
    stopEnding_.request_stop();
    ending_.reset();
    hasEnding_ = false;
}

CtcLogProbabilities CtcSpotting::finish(const std::stop_token& stop)
{
    speculate();
    if (ending_)
        parts_.push_back(*std::exchange(ending_, std::nullopt));
    const std::stop_callback onStop(stop, [this] {
        stop_.request_stop();
        stopEnding_.request_stop();
    });
    CtcLogProbabilities result;
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        const EncoderFrames scores = parts_[i].scores.get();
        const Window& window = parts_[i].window;
        const std::size_t offset = frameOf(window.begin);
        const std::size_t end = i + 1 < parts_.size() ? (frameOf(parts_[i + 1].window.start) + frameOf(window.end)) / 2
                                                      : offset + scores.frames;
        spotter_->append(result, scores, result.frames - offset, end - offset);
    }
    return result;
}

} // namespace vantro::asr
