#pragma once

#include "vantro/ai/ModeHandler.h"
#include "vantro/ai/TranscriptionStoring.h"

namespace vantro {

/// Adds the transcript to today's notes and has their summary rewritten.
class NotesModeHandler final : public ModeHandler
{
public:
    explicit NotesModeHandler(TranscriptionStoring& store);

    QCoro::Task<QString> process(QString transcript, std::shared_ptr<FormatRequestServicing> service) override;

private:
    TranscriptionStoring& store_;
};

} // namespace vantro
