#include "vantro/app/ProcessingErrorMessage.h"

#include "base/Error.h"
#include "platform/Wording.h"
#include "vantro/ai/AnswerSetAside.h"
#include "vantro/ai/services/LocalFormatError.h"
#include "vantro/ai/services/RemoteFormatError.h"

namespace vantro {

namespace {

QString localMessage(const LocalFormatError& error)
{
    switch (error.kind()) {
    case LocalFormatError::Kind::modelUnavailable:
        return QCoreApplication::translate("AudioRecorder", "The on-device model is not available on this device.");
    case LocalFormatError::Kind::modelNotReady:
        return QCoreApplication::translate("AudioRecorder", "The model is not ready. Please wait for it to download.");
    case LocalFormatError::Kind::appleIntelligenceNotEnabled:
        return wording::localProcessingIsOff() + QLatin1Char('.');
    case LocalFormatError::Kind::contextWindowExceeded:
        return QCoreApplication::translate("AudioRecorder",
                                           "The text is too long to process. Please try with shorter text.");
    case LocalFormatError::Kind::generationFailed:
        return QCoreApplication::translate("AudioRecorder", "Generation failed: ") + error.detail();
    }
    Q_UNREACHABLE();
}

} // namespace

QString processingErrorMessage(const std::exception& error)
{
    if (const auto* local = dynamic_cast<const LocalFormatError*>(&error))
        return localMessage(*local);
    if (const auto* remote = dynamic_cast<const RemoteFormatError*>(&error)) {
        return remote->localizedDescription().isEmpty()
                   ? QCoreApplication::translate("AudioRecorder", "AI processing failed.")
                   : remote->localizedDescription();
    }
    if (dynamic_cast<const AnswerSetAside*>(&error) != nullptr)
        return localizedDescription(error);
    return QCoreApplication::translate("AudioRecorder", "Error processing transcription: ") +
           localizedDescription(error);
}

} // namespace vantro
