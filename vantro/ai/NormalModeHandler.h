#pragma once

#include "vantro/ai/ModeHandler.h"
#include "vantro/ai/TranscriptionStoring.h"

namespace vantro {

/// Stores and delivers the transcript, unchanged unless the mode is set up to clean it.
class NormalModeHandler final : public ModeHandler
{
public:
    explicit NormalModeHandler(TranscriptionStoring& store, Cleaning cleaning = {});

    QCoro::Task<QString> process(QString transcript, std::shared_ptr<FormatRequestServicing> service) override;

private:
    TranscriptionStoring& store_;
    Cleaning cleaning_; ///< may be empty
};

} // namespace vantro
