#pragma once

#include "vantro/ai/ModeHandler.h"
#include "vantro/ai/ProcessingMode.h"

#include <map>
#include <memory>

namespace vantro {

class PromptSettings;
class TranscriptionStoring;

/// The handler of each mode. A mode without one is treated as Normal.
using ModeHandlers = std::map<ProcessingMode, std::unique_ptr<ModeHandler>>;

/// The arguments must outlive the handlers. @p cleaning may be empty.
ModeHandlers makeModeHandlers(TranscriptionStoring& store, const PromptSettings& prompts,
                              const Cleaning& cleaning = {});

} // namespace vantro
