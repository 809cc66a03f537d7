#pragma once

#include "vantro/app/DictationPipeline.h"

namespace vantro {

class PromptSettings;
class TranscriptionStoring;

/// What becomes of a transcript in each mode. Both arguments must outlive the handlers.
DictationPipeline::Handlers makeModeHandlers(TranscriptionStoring& store, const PromptSettings& prompts);

} // namespace vantro
