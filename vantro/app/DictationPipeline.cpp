#include "vantro/app/DictationPipeline.h"

#include "vantro/app/ProcessingErrorMessage.h"

#include <QMetaObject>
#include <QPointer>
#include <QScopeGuard>

#include <utility>

namespace vantro {

/// Holds what was fixed when the recording stopped.
class DictationPipeline::Job final : public DictationJob
{
public:
    Job(DictationPipeline& pipeline, ModeHandler& handler, std::shared_ptr<FormatRequestServicing> service,
        TranscriptionFacade::EngineUse engineUse)
        : pipeline_(pipeline)
        , handler_(handler)
        , service_(std::move(service))
        , engineUse_(std::move(engineUse))
    {
    }

    QCoro::Task<DictationResult> run(QString recordingID, std::vector<float> samples) override
    {
        pipeline_.serviceInUse_ = service_;
        QString transcript;
        try {
            transcript = co_await pipeline_.transcribe(std::move(recordingID), std::move(samples));
        } catch (const std::exception& error) {
            const QString description = localizedDescription(error);
            pipeline_.logger_.error(QStringLiteral("Transcription failed: ") + description);
            co_return DictationResult({}, QStringLiteral("Failed to transcribe audio: ") + description);
        }
        if (transcript.isEmpty())
            co_return DictationResult();

        pipeline_.logger_.info(QStringLiteral("Processing transcription"));
        try {
            QString text = co_await handler_.process(transcript, service_);
            co_return DictationResult(std::move(text));
        } catch (const std::exception& error) {
            pipeline_.logger_.error(QStringLiteral("Processing error: ") + localizedDescription(error));
            co_return DictationResult(transcript, processingErrorMessage(error));
        }
    }

private:
    DictationPipeline& pipeline_;
    ModeHandler& handler_;
    std::shared_ptr<FormatRequestServicing> service_;
    TranscriptionFacade::EngineUse engineUse_;
};

DictationPipeline::DictationPipeline(TranscriptionFacade& facade, Handlers handlers, FormatServices formatServices)
    : facade_(facade)
    , handlers_(std::move(handlers))
    , formatServices_(std::move(formatServices))
{
}

void DictationPipeline::recordingStarted()
{
    recordingUse_ = facade_.prepare();
    if (formatServices_.expectUse)
        formatServices_.expectUse();
}

void DictationPipeline::recordingDiscarded()
{
    recordingUse_.reset();
}

void DictationPipeline::runAbandoned()
{
    stop_.request_stop();
    if (const auto service = serviceInUse_.lock())
        service->cancel();
}

std::unique_ptr<DictationJob> DictationPipeline::prepare(ProcessingMode mode)
{
    const auto handler = handlers_.contains(mode) ? handlers_.find(mode) : handlers_.find(ProcessingMode::Normal);
    auto service = formatServices_.choose ? formatServices_.choose(mode) : nullptr;
    return std::make_unique<Job>(*this, *handler->second, std::move(service), std::move(recordingUse_));
}

QCoro::Task<QString> DictationPipeline::transcribe(QString recordingID, std::vector<float> samples)
{
    TranscriptionFacade::Options options;
    options.onProgress = [self = QPointer(this)](float fraction) {
        if (self != nullptr) {
            QMetaObject::invokeMethod(
                self, [self, fraction] { Q_EMIT self->transcriptionProgress(fraction); }, Qt::QueuedConnection);
        }
    };
    stop_ = std::stop_source();
    options.stop = stop_.get_token();
    const auto begun = std::chrono::steady_clock::now();
    const auto timed = qScopeGuard([this, begun] {
        lastEngineTime_ =
            std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begun);
    });
    co_return co_await facade_.transcribe(std::move(recordingID), std::move(samples), std::move(options));
}

} // namespace vantro
