#include "vantro/ai/providers/LegacyKeyName.h"

#include "base/Logger.h"

namespace vantro {

void renameLegacyKey(UserDefaults& defaults)
{
    const auto formerName = QStringLiteral("userOpenAIKey");
    const auto name = QStringLiteral("userKey");
    const auto value = defaults.string(formerName);
    if (!value)
        return;
    printLine(QStringLiteral("Migrating key name"));
    defaults.setString(name, *value);
    if (defaults.string(name) == value)
        defaults.remove(formerName);
}

} // namespace vantro
