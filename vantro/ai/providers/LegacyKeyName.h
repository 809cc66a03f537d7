#pragma once

#include "base/UserDefaults.h"

namespace vantro {

/// Gives the settings key "userOpenAIKey" of former versions its present name "userKey". Does nothing when there is
/// none.
void renameLegacyKey(UserDefaults& defaults);

} // namespace vantro
