#include "vantro/ai/DefaultMode.h"

namespace vantro {

ProcessingMode defaultMode(const UserDefaults& defaults)
{
    return processingModeFromRawValue(defaults.string(defaultModeKey).value_or(QString()))
        .value_or(ProcessingMode::Normal);
}

void setDefaultMode(UserDefaults& defaults, ProcessingMode mode)
{
    defaults.setString(defaultModeKey, rawValue(mode));
}

} // namespace vantro
