#pragma once

#include "vantro/ai/ProcessingMode.h"

#include <QString>

#include <optional>

namespace vantro {

/// The prompt a mode has until the user writes another; none for Normal and Custom.
std::optional<QString> builtInPrompt(ProcessingMode mode);

} // namespace vantro
