#include "platform/WindowSystem.h"

#include "platform/linux/WaylandSession.h"

#include <QByteArray>

namespace vantro::windowsystem {

namespace {

constexpr char qtPlatform[] = "QT_QPA_PLATFORM";

} // namespace

Choice::Choice() : isOurs_(!qEnvironmentVariableIsSet(qtPlatform))
{
    if (isOurs_ && isWaylandSession())
        qputenv(qtPlatform, "wayland;xcb");
    else if (isOurs_ && isX11OnWayland())
        qputenv(qtPlatform, "xcb");
    // A window without a role of its own can be made a panel of the layer shell. Qt asks for it again and again.
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
    // Panels keep the place that they are given.
    qputenv("QT_WAYLAND_DISABLE_FIXED_POSITIONS", "1");
}

Choice::~Choice()
{
    if (isOurs_)
        qunsetenv(qtPlatform);
}

} // namespace vantro::windowsystem
