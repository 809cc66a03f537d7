#pragma once

#include "vantro/ai/ModeHandler.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/ai/TranscriptionStoring.h"

#include <utility>

namespace vantro {

/// Common to the modes that use a language model: the transcript is stored before the model is asked, so that no
/// failure loses it.
class FormattingModeHandler : public ModeHandler
{
protected:
    FormattingModeHandler(ProcessingMode mode, TranscriptionStoring& store, const PromptSettings& prompts,
                          Cleaning cleaning);

public:
    QCoro::Task<QString> process(QString transcript, std::shared_ptr<FormatRequestServicing> service) override;

private:
    ProcessingMode mode_;
    TranscriptionStoring& store_;
    const PromptSettings& prompts_;
    Cleaning cleaning_; ///< may be empty
};

class EmailModeHandler final : public FormattingModeHandler
{
public:
    EmailModeHandler(TranscriptionStoring& store, const PromptSettings& prompts, Cleaning cleaning = {})
        : FormattingModeHandler(ProcessingMode::Email, store, prompts, std::move(cleaning))
    {
    }
};

/// Grammar.
class ThirdModeHandler final : public FormattingModeHandler
{
public:
    ThirdModeHandler(TranscriptionStoring& store, const PromptSettings& prompts, Cleaning cleaning = {})
        : FormattingModeHandler(ProcessingMode::Grammar, store, prompts, std::move(cleaning))
    {
    }
};

/// Of the user's own modes. Without a prompt the transcript stays as it is.
class CustomModeHandler final : public FormattingModeHandler
{
public:
    CustomModeHandler(TranscriptionStoring& store, const PromptSettings& prompts, Cleaning cleaning = {},
                      ProcessingMode mode = ProcessingMode::Custom)
        : FormattingModeHandler(mode, store, prompts, std::move(cleaning))
    {
    }
};

} // namespace vantro
