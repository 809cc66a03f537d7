#include "vantro/ai/NormalModeHandler.h"

#include <utility>

namespace vantro {

NormalModeHandler::NormalModeHandler(TranscriptionStoring& store, Cleaning cleaning)
    : store_(store)
    , cleaning_(std::move(cleaning))
{
}

QCoro::Task<QString> NormalModeHandler::process(QString transcript, std::shared_ptr<FormatRequestServicing> /*service*/)
{
    const auto cleaned = cleaning_ ? cleaning_(ProcessingMode::Normal, transcript) : std::nullopt;
    store_.saveTranscription(transcript, cleaned.value_or(QString()), ProcessingMode::Normal);
    co_return cleaned.value_or(transcript);
}

} // namespace vantro
