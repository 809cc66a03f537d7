#include "vantro/app/SecondTranscription.h"

#include "base/Error.h"
#include "base/SampleFormat.h"
#include "vantro/sound/AudioFile.h"

#include <utility>

namespace vantro {

SecondTranscription::SecondTranscription(TranscriptionFacade& facade, const AudioRecorder& recorder)
    : facade_(facade)
    , recorder_(recorder)
{
    connect(&recorder, &AudioRecorder::isBusyChanged, this,
            [this] { std::exchange(stop_, std::stop_source()).request_stop(); });
}

SecondTranscription::~SecondTranscription()
{
    stop_.request_stop();
}

QCoro::Task<QString> SecondTranscription::run(TranscriptionModel model, QString file)
{
    if (recorder_.isBusy())
        throw Error(tr("Wait until your dictation is over, and try again."));
    TranscriptionFacade::Options options;
    options.model = &model;
    options.stop = stop_.get_token();
    const std::stop_token stop = options.stop;
    const auto use = facade_.hold();
    const auto reading = reader_.run([file] { return AudioFile::read(file).samples; });
    std::vector<float> samples = co_await reading;
    QString text;
    QString problem;
    try {
        auto transcription = facade_.transcribe(file, std::move(samples), options);
        text = co_await transcription;
    } catch (const std::exception& error) {
        problem = localizedDescription(error);
    }
    if (stop.stop_requested())
        throw Error(tr("A dictation came in between. Try again."));
    if (!problem.isEmpty())
        throw Error(tr("Failed to transcribe audio: ") + problem);
    co_return text;
}

} // namespace vantro
