#pragma once

#include "base/UserDefaults.h"

namespace vantro {

/// Renames the settings key "userOpenAIKey" of earlier versions to "userKey", if it is there.
void renameLegacyKey(UserDefaults& defaults);

} // namespace vantro
