#include "vantro/ai/NotesModeHandler.h"

#include <utility>

namespace vantro {

NotesModeHandler::NotesModeHandler(TranscriptionStoring& store) : store_(store) {}

QCoro::Task<QString> NotesModeHandler::process(QString transcript, std::shared_ptr<FormatRequestServicing> service)
{
    co_await store_.addNote(transcript);
    co_await store_.summarizeToday(std::move(service));
    co_return transcript;
}

} // namespace vantro
