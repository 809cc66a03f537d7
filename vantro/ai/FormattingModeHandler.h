#pragma once

#include "vantro/ai/ModeHandler.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/ai/TranscriptionStoring.h"

namespace vantro {

/// Common to the modes that use a language model: the transcript is stored before the model is asked, so that no
/// failure loses it.
class FormattingModeHandler : public ModeHandler
{
protected:
    FormattingModeHandler(ProcessingMode mode, TranscriptionStoring& store, const PromptSettings& prompts);

public:
    QCoro::Task<QString> process(QString transcript, std::shared_ptr<FormatRequestServicing> service) override;

private:
    ProcessingMode mode_;
    TranscriptionStoring& store_;
    const PromptSettings& prompts_;
};

class EmailModeHandler final : public FormattingModeHandler
{
public:
    EmailModeHandler(TranscriptionStoring& store, const PromptSettings& prompts)
        : FormattingModeHandler(ProcessingMode::Email, store, prompts)
    {
    }
};

/// Grammar.
class ThirdModeHandler final : public FormattingModeHandler
{
public:
    ThirdModeHandler(TranscriptionStoring& store, const PromptSettings& prompts)
        : FormattingModeHandler(ProcessingMode::Grammar, store, prompts)
    {
    }
};

/// Without a prompt the transcript stays as it is.
class CustomModeHandler final : public FormattingModeHandler
{
public:
    CustomModeHandler(TranscriptionStoring& store, const PromptSettings& prompts)
        : FormattingModeHandler(ProcessingMode::Custom, store, prompts)
    {
    }
};

} // namespace vantro
