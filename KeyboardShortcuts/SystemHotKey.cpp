#include "KeyboardShortcuts/SystemHotKey.h"

#include <QCoreApplication>

#include <limits>

namespace vantro {

namespace {

std::uint32_t nextHotKeyId()
{
    static std::uint32_t last = 0;
    if (last == std::numeric_limits<std::uint32_t>::max())
        qFatal("Out of hot key identifiers");
    return ++last;
}

bool fits32Bits(qint64 value)
{
    return value >= 0 && value <= std::numeric_limits<std::uint32_t>::max();
}

} // namespace

SystemHotKey::SystemHotKey(HotKeyManager& hotKeys, qint64 keyCode, qint64 modifiers)
    : hotKeys_(hotKeys)
    , id_(nextHotKeyId())
{
    if (!fits32Bits(keyCode) || !fits32Bits(modifiers))
        throw HotKeyError(
            QCoreApplication::translate("KeyboardShortcuts", "The stored shortcut is damaged. Record it again."));
    hotKeys_.registerHotKey(id_, static_cast<std::uint32_t>(keyCode), static_cast<std::uint32_t>(modifiers));
}

} // namespace vantro
