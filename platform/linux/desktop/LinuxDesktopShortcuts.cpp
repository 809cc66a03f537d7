#include "platform/linux/desktop/LinuxDesktopShortcuts.h"

#include "platform/KeyCode.h"
#include "platform/linux/desktop/GnomeShortcuts.h"
#include "platform/linux/desktop/KdeShortcuts.h"
#include "platform/linux/desktop/XfceShortcuts.h"

#include <QCoreApplication>
#include <QStandardPaths>

namespace vantro {

std::vector<DesktopShortcut> LinuxDesktopShortcuts::bound() const
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toUpper().split(QLatin1Char(':'));
    if (desktops.contains(QLatin1String("KDE")))
        return readKdeShortcuts(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                                QStringLiteral("/kglobalshortcutsrc"));
    if (desktops.contains(QLatin1String("XFCE")))
        return readXfceShortcuts(QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation));
    if (desktops.contains(QLatin1String("GNOME")) || desktops.contains(QLatin1String("UNITY")))
        return readGnomeShortcuts();
    return {};
}

std::optional<QString> LinuxDesktopShortcuts::reservedFor(std::uint32_t keyCode, std::uint32_t modifiers) const
{
    constexpr std::uint32_t f1 = 0xffbe;
    constexpr std::uint32_t f12 = 0xffc9;
    const auto keysym = KeyCode::toKeysym(keyCode).value_or(0);
    if (modifiers != (Modifier::command | Modifier::option) || keysym < f1 || keysym > f12)
        return std::nullopt;
    return QCoreApplication::translate("KeyboardShortcuts", "switch to another console");
}

} // namespace vantro
