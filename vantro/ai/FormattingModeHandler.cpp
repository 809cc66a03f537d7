#include "vantro/ai/FormattingModeHandler.h"

#include "vantro/ai/AnswerSetAside.h"

namespace vantro {

FormattingModeHandler::FormattingModeHandler(ProcessingMode mode, TranscriptionStoring& store,
                                             const PromptSettings& prompts, Cleaning cleaning)
    : mode_(mode)
    , store_(store)
    , prompts_(prompts)
    , cleaning_(std::move(cleaning))
{
}

QCoro::Task<QString> FormattingModeHandler::process(QString transcript, std::shared_ptr<FormatRequestServicing> service)
{
    const QUuid id = store_.saveTranscription(transcript, mode_);
    if (const auto cleaned = cleaning_ ? cleaning_(mode_, transcript) : std::nullopt) {
        store_.updateFormatted(id, *cleaned);
        co_return *cleaned;
    }
    const QString prompt = prompts_.prompt(mode_);
    if (isOwnMode(mode_) && prompt.isEmpty())
        co_return transcript;
    try {
        const QString formatted = co_await service->format(prompt, transcript);
        store_.updateFormatted(id, formatted);
        co_return formatted;
    } catch (const AnswerSetAside& doubt) {
        store_.setAside(id, doubt.answer(), doubt.localizedDescription());
        throw;
    }
}

} // namespace vantro
