#pragma once

#include "vantro/ai/ProcessingMode.h"

#include <QString>

#include <optional>

namespace vantro {

/// The default prompt of a mode; none for Normal and Custom.
std::optional<QString> builtInPrompt(ProcessingMode mode);

} // namespace vantro
