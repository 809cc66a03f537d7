#include "vantro/ai/DefaultMode.h"

#include "base/Settings.h"

namespace vantro {

ProcessingMode defaultMode(const UserDefaults& defaults)
{
    return processingModeFromRawValue(defaults.get(setting::defaultProcessingMode)).value_or(ProcessingMode::Normal);
}

void setDefaultMode(UserDefaults& defaults, ProcessingMode mode)
{
    defaults.set(setting::defaultProcessingMode, rawValue(mode));
}

} // namespace vantro
