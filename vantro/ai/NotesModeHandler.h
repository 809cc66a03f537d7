#pragma once

#include "vantro/ai/ModeHandler.h"
#include "vantro/ai/TranscriptionStoring.h"

namespace vantro {

/// Adds the transcript to today's notes and has their summary rewritten, for which nobody waits. Must outlive that.
class NotesModeHandler final : public ModeHandler
{
public:
    explicit NotesModeHandler(TranscriptionStoring& store);

    QCoro::Task<QString> process(QString transcript, std::shared_ptr<FormatRequestServicing> service) override;

private:
    QCoro::Task<> summarize(std::shared_ptr<FormatRequestServicing> service);

    TranscriptionStoring& store_;
    std::shared_ptr<FormatRequestServicing> next_; ///< for the notes that came while a summary was made
    bool isSummarizing_ = false;
};

} // namespace vantro
