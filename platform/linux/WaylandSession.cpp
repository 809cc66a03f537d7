#include "platform/linux/WaylandSession.h"

#include "platform/linux/wayland/WaylandConnection.h"

#include <QGuiApplication>

namespace vantro {

namespace {

/// Some compositors are started without telling the kind of session; a nested one may stand on an X11 desktop.
bool isStartedAsWayland()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
           (qEnvironmentVariable("XDG_SESSION_TYPE") == QLatin1String("wayland") ||
            qEnvironmentVariableIsEmpty("DISPLAY"));
}

/// A program without the clipboard is better off as one of X11, whose clipboard is the same.
bool isWorthUsing()
{
    return qEnvironmentVariableIsEmpty("DISPLAY") ||
           WaylandConnection(WaylandConnection::Events::byOwner).offers("zwlr_data_control_manager_v1");
}

} // namespace

bool isWaylandSession()
{
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr)
        return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    return isStartedAsWayland() && isWorthUsing();
}

bool isX11OnWayland()
{
    return isStartedAsWayland() && !isWaylandSession();
}

} // namespace vantro
