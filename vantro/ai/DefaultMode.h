#pragma once

#include "base/UserDefaults.h"
#include "vantro/ai/ProcessingMode.h"

namespace vantro {

/// The mode in which dictations begin: Normal until the user chooses another.
ProcessingMode defaultMode(const UserDefaults& defaults);
void setDefaultMode(UserDefaults& defaults, ProcessingMode mode);

} // namespace vantro
