#include "platform/linux/x11/X11Keyboards.h"

#include "platform/linux/x11/X11Connection.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>

#include <algorithm>
#include <memory>
#include <span>

namespace vantro {

namespace {

struct FreeDevices
{
    void operator()(XIDeviceInfo* devices) const { XIFreeDeviceInfo(devices); }
};

bool isSynthesiser(Display* display, KeyboardDevice device, Atom mark)
{
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    if (XIGetProperty(display, static_cast<int>(device), mark, 0, 1, False, XA_INTEGER, &type, &format, &count, &left,
                      &data) != Success)
        return false;
    const bool isMarked = count > 0 && data[0] != 0;
    XFree(data);
    return isMarked;
}

} // namespace

bool speaksInputExtension(X11Connection& connection)
{
    int major = 2;
    int minor = 2;
    return connection.isOpen() && XIQueryVersion(connection.display(), &major, &minor) == Success;
}

std::vector<KeyboardDevice> attachedKeyboards(X11Connection& connection)
{
    int pointer = 0;
    int count = 0;
    Display* const display = connection.display();
    if (!speaksInputExtension(connection) || XIGetClientPointer(display, None, &pointer) == 0)
        return {};
    const std::unique_ptr<XIDeviceInfo, FreeDevices> list(XIQueryDevice(display, XIAllDevices, &count));
    const std::span devices(list.get(), list ? static_cast<std::size_t>(count) : 0);
    std::vector<KeyboardDevice> result;
    for (const XIDeviceInfo& device : devices) {
        const auto master = std::ranges::find(devices, device.attachment, &XIDeviceInfo::deviceid);
        if (device.use == XISlaveKeyboard && master != devices.end() && master->attachment == pointer)
            result.push_back(static_cast<KeyboardDevice>(device.deviceid));
    }
    return result;
}

std::optional<KeyboardDevice> synthesisingKeyboard(X11Connection& connection)
{
    const auto keyboards = attachedKeyboards(connection);
    if (keyboards.empty())
        return std::nullopt;
    Display* const display = connection.display();
    const Atom mark = XInternAtom(display, "XTEST Device", False);
    const auto found =
        std::ranges::find_if(keyboards, [&](KeyboardDevice device) { return isSynthesiser(display, device, mark); });
    return found != keyboards.end() ? std::optional(*found) : std::nullopt;
}

} // namespace vantro
