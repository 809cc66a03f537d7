#include "platform/linux/x11/X11UserActivity.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11ErrorTrap.h"
#include "platform/linux/x11/X11Keyboards.h"

#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>

#include <array>

namespace vantro {

X11UserActivity::X11UserActivity(X11Connection& connection) : connection_(connection)
{
    int event = 0;
    int error = 0;
    if (!speaksInputExtension(connection_) ||
        XQueryExtension(connection_.display(), "XInputExtension", &opcode_, &event, &error) == 0)
        return;
    select(true);
    connection_.addListener(this, [this](XEvent& event) { note(event); });
}

X11UserActivity::~X11UserActivity()
{
    if (opcode_ != 0)
        select(false);
}

void X11UserActivity::select(bool on)
{
    if (!connection_.isOpen())
        return;
    const X11ErrorTrap trap(connection_);
    std::array<unsigned char, XIMaskLen(XI_LASTEVENT)> bits{};
    if (on) {
        for (const int type : {XI_RawKeyPress, XI_RawKeyRelease, XI_RawButtonPress, XI_RawTouchBegin})
            XISetMask(bits.data(), type);
    }
    XIEventMask mask{XIAllMasterDevices, static_cast<int>(bits.size()), bits.data()};
    XISelectEvents(connection_.display(), connection_.rootWindow(), &mask, 1);
}

void X11UserActivity::note(XEvent& event)
{
    XGenericEventCookie& cookie = event.xcookie;
    if (event.type != GenericEvent || cookie.extension != opcode_ || XGetEventData(connection_.display(), &cookie) == 0)
        return;
    latest_ = static_cast<const XIRawEvent*>(cookie.data)->time;
    seen_ = std::chrono::steady_clock::now();
    XFreeEventData(connection_.display(), &cookie);
}

bool X11UserActivity::hasActed(std::chrono::milliseconds span, quint64 after) const
{
    return latest_ > after && std::chrono::steady_clock::now() - seen_ <= span;
}

} // namespace vantro
