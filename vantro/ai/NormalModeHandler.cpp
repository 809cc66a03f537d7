#include "vantro/ai/NormalModeHandler.h"

namespace vantro {

NormalModeHandler::NormalModeHandler(TranscriptionStoring& store) : store_(store) {}

QCoro::Task<QString> NormalModeHandler::process(QString transcript, std::shared_ptr<FormatRequestServicing> /*service*/)
{
    store_.saveTranscription(transcript, QString(), ProcessingMode::Normal);
    co_return transcript;
}

} // namespace vantro
