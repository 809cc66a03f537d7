#include "vantro/app/RecognitionAhead.h"

#include "base/SampleFormat.h"
#include "base/Settings.h"

#include <QPointer>

#include <utility>

namespace vantro {

RecognitionAhead::~RecognitionAhead()
{
    drop();
}

void RecognitionAhead::follow(std::shared_ptr<const SampleCollector> collector, const QString& recordingID)
{
    if (!parts_.defaults.get(setting::recognizeWhileSpeaking) || parts_.session.isSavingPower())
        return;
    collector_ = std::move(collector);
    recordingID_ = recordingID;
    listening_ = std::make_unique<QObject>();
    // Model, language and replacements may differ from now on.
    connect(&parts_.defaults, &UserDefaults::changed, listening_.get(), [this] { drop(); });
    lookAgain();
}

void RecognitionAhead::expectEnd()
{
    isEnding_ = true;
    if (!listening_)
        return;
    look();
    parts_.transcription.hurry();
}

void RecognitionAhead::lookAgain()
{
    parts_.clock.callAfter(interval, listening_.get(), [this] {
        look();
        lookAgain();
    });
}

void RecognitionAhead::look()
{
    const std::vector<float> fresh = collector_->samplesFrom(samples_.size());
    samples_.insert(samples_.end(), fresh.begin(), fresh.end());
    pauses_.hear(fresh);
    if (attempt_ && attempt_->sampleCount != pauses_.usefulCount())
        drop();
    const std::size_t pause = isEnding_ ? PauseDetector::tailCount : pauseCount;
    const bool mayHaveEnded = pauses_.speechCount() > 0 && pauses_.pauseCount() >= pause;
    if (!hear(mayHaveEnded) && mayHaveEnded && !attempt_ && !hasFailed_)
        attempt();
}

/// Passes on what was said, without the background of a pause, which belongs to the recording only if the user speaks
/// on. Returns false if the engine does not follow recordings.
bool RecognitionAhead::hear(bool mayHaveEnded)
{
    return parts_.transcription.hear(recordingID_, std::span(samples_).first(pauses_.usefulCount()), mayHaveEnded,
                                     [self = QPointer(this)](const QString& text) {
                                         if (self)
                                             Q_EMIT self->understood(text);
                                     });
}

void RecognitionAhead::attempt()
{
    const std::size_t count = pauses_.usefulCount();
    if (count < minimumSampleCount || count > parts_.transcription.aheadLimit())
        return;
    attempt_ = std::make_shared<Attempt>();
    attempt_->sampleCount = count;
    recognise(attempt_, {samples_.begin(), samples_.begin() + static_cast<std::ptrdiff_t>(count)});
}

QCoro::Task<> RecognitionAhead::recognise(std::shared_ptr<Attempt> attempt, std::vector<float> samples)
{
    const QPointer<RecognitionAhead> self(this);
    try {
        TranscriptionFacade::Options options;
        options.stop = attempt->stop.get_token();
        options.isAhead = !isEnding_;
        options.onLanguage = [attempt](const QString& code) {
            attempt->language = code;
        };
        auto transcription = parts_.transcription.transcribe(recordingID_, std::move(samples), std::move(options));
        attempt->text = co_await transcription;
        if (self && self->attempt_ == attempt)
            Q_EMIT self->understood(*attempt->text);
    } catch (const std::exception&) {
        // Whoever wants the text tries again and reports it.
        if (self && self->attempt_ == attempt)
            self->hasFailed_ = true;
    }
    attempt->done.open();
}

QCoro::Task<QString> RecognitionAhead::transcribe(QString recordingID, std::vector<float> samples,
                                                  TranscriptionFacade::Options options)
{
    stopListening();
    pauses_.hear(std::span(samples).subspan(pauses_.heardCount()));
    // Something this short is no speech that the recording could be cut after.
    if (pauses_.usefulCount() >= minimumSampleCount)
        samples.resize(pauses_.usefulCount());
    const auto attempt = std::exchange(attempt_, nullptr);
    if (attempt && attempt->sampleCount == samples.size()) {
        const std::stop_callback passOn(options.stop, [&attempt] { attempt->stop.request_stop(); });
        co_await attempt->done.opened();
        if (attempt->text && options.onLanguage && !attempt->language.isEmpty())
            options.onLanguage(attempt->language);
        if (attempt->text)
            co_return *attempt->text;
    } else if (attempt) {
        attempt->stop.request_stop();
    }
    co_return co_await parts_.transcription.transcribe(std::move(recordingID), std::move(samples), std::move(options));
}

void RecognitionAhead::end()
{
    stopListening();
    drop();
}

/// Gives the samples' memory back: a dictation outlives its end.
void RecognitionAhead::stopListening()
{
    listening_.reset();
    collector_.reset();
    samples_ = {};
}

void RecognitionAhead::drop()
{
    if (const auto attempt = std::exchange(attempt_, nullptr))
        attempt->stop.request_stop();
}

} // namespace vantro
