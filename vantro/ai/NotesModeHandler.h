#pragma once

#include "vantro/ai/ModeHandler.h"
#include "vantro/ai/TranscriptionStoring.h"

namespace vantro {

/// Files the transcript as a note of the day and has the day's summary written anew.
class NotesModeHandler final : public ModeHandler
{
public:
    explicit NotesModeHandler(TranscriptionStoring& store);

    QCoro::Task<QString> process(QString transcript, std::shared_ptr<FormatRequestServicing> service) override;

private:
    TranscriptionStoring& store_;
};

} // namespace vantro
