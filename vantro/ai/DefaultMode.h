#pragma once

#include "base/UserDefaults.h"
#include "vantro/ai/ProcessingMode.h"

namespace vantro {

/// The mode a dictation starts in: Normal unless the user has chosen another.
ProcessingMode defaultMode(const UserDefaults& defaults);
void setDefaultMode(UserDefaults& defaults, ProcessingMode mode);

} // namespace vantro
