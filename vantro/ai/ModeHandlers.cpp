#include "vantro/ai/ModeHandlers.h"

#include "vantro/ai/FormattingModeHandler.h"
#include "vantro/ai/NormalModeHandler.h"
#include "vantro/ai/NotesModeHandler.h"

namespace vantro {

ModeHandlers makeModeHandlers(TranscriptionStoring& store, const PromptSettings& prompts, const Cleaning& cleaning)
{
    ModeHandlers handlers;
    handlers[ProcessingMode::Normal] = std::make_unique<NormalModeHandler>(store, cleaning);
    handlers[ProcessingMode::Email] = std::make_unique<EmailModeHandler>(store, prompts, cleaning);
    handlers[ProcessingMode::Grammar] = std::make_unique<ThirdModeHandler>(store, prompts, cleaning);
    handlers[ProcessingMode::Notes] = std::make_unique<NotesModeHandler>(store);
    for (const ProcessingMode mode : allProcessingModes) {
        if (isOwnMode(mode))
            handlers[mode] = std::make_unique<CustomModeHandler>(store, prompts, cleaning, mode);
    }
    return handlers;
}

} // namespace vantro
