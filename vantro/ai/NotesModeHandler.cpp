#include "vantro/ai/NotesModeHandler.h"

#include <utility>

namespace vantro {

NotesModeHandler::NotesModeHandler(TranscriptionStoring& store) : store_(store) {}

QCoro::Task<QString> NotesModeHandler::process(QString transcript, std::shared_ptr<FormatRequestServicing> service)
{
    co_await store_.addNote(transcript);
    summarize(std::move(service));
    co_return transcript;
}

/// One at a time: an earlier one that takes longer would overwrite a later one.
QCoro::Task<> NotesModeHandler::summarize(std::shared_ptr<FormatRequestServicing> service)
{
    next_ = std::move(service);
    if (isSummarizing_)
        co_return;
    isSummarizing_ = true;
    while (next_) {
        const auto summary = store_.summarizeToday(std::exchange(next_, nullptr));
        co_await summary;
    }
    isSummarizing_ = false;
}

} // namespace vantro
