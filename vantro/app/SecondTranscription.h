#pragma once

#include "base/SerialExecutor.h"
#include "vantro/app/TranscriptionFacade.h"
#include "vantro/audio/AudioRecorder.h"

#include <QObject>
#include <qcoro/qcorotask.h>

#include <stop_token>

namespace vantro {

/// Transcribes kept recordings once more. A dictation that begins meanwhile takes precedence. Main thread.
class SecondTranscription final : public QObject
{
    Q_OBJECT
public:
    /// Both must outlive this object.
    SecondTranscription(TranscriptionFacade& facade, const AudioRecorder& recorder);
    ~SecondTranscription() override;

    /// @p file: of a format that AudioFile reads. Throws Error, also during a dictation.
    [[nodiscard]] QCoro::Task<QString> run(TranscriptionModel model, QString file);

private:
    TranscriptionFacade& facade_;
    const AudioRecorder& recorder_;
    std::stop_source stop_; ///< of all that run until the next dictation
    SerialExecutor reader_{QStringLiteral("second transcription")};
};

} // namespace vantro
