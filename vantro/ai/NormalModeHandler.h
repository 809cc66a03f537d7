#pragma once

#include "vantro/ai/ModeHandler.h"
#include "vantro/ai/TranscriptionStoring.h"

namespace vantro {

/// Stores and delivers the transcript unchanged.
class NormalModeHandler final : public ModeHandler
{
public:
    explicit NormalModeHandler(TranscriptionStoring& store);

    QCoro::Task<QString> process(QString transcript, std::shared_ptr<FormatRequestServicing> service) override;

private:
    TranscriptionStoring& store_;
};

} // namespace vantro
