#include "vantro/ai/providers/LegacyKeyName.h"

#include "base/Logger.h"
#include "base/Settings.h"

namespace vantro {

void renameLegacyKey(UserDefaults& defaults)
{
    const auto value = defaults.stored(setting::formerUserKey);
    if (!value)
        return;
    printLine(QStringLiteral("Migrating key name"));
    defaults.set(setting::userKey, *value);
    if (defaults.stored(setting::userKey) == value)
        defaults.remove(setting::formerUserKey.key);
}

} // namespace vantro
