#include "platform/linux/desktop/LinuxDesktopShortcuts.h"

#include "platform/linux/desktop/GnomeShortcuts.h"
#include "platform/linux/desktop/KdeShortcuts.h"
#include "platform/linux/desktop/XfceShortcuts.h"

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

} // namespace vantro
