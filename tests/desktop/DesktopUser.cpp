#include "tests/desktop/DesktopUser.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XInput.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ranges>
#include <stdexcept>
#include <string_view>

namespace vantro::desktop {

namespace {

constexpr int limitMs = 10'000;
constexpr int pollMs = 2;

void setxkbmap(const QStringList& arguments)
{
    if (QProcess::execute(QStringLiteral("setxkbmap"), arguments) != 0)
        throw std::runtime_error("setxkbmap failed");
}

} // namespace

std::optional<std::string> missingDisplay()
{
    if (const char* const reason = std::getenv("VANTRO_NO_DISPLAY"))
        return reason;
    if (std::getenv("DISPLAY") == nullptr)
        return "DISPLAY is not set; run through tests/desktop/with-display";
    return std::nullopt;
}

bool eventually(const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(limitMs);
    QTimer wakeUp;
    wakeUp.start(pollMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        // It must be able to wait, as the program's own loop does: only then are events found that Xlib has read
        // already.
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return true;
}

struct DesktopUser::State
{
    Display* display = nullptr;
    XDevice* keyboard = nullptr;
    XID synthesiser = 0;
    QString layouts = QStringLiteral("us");

    void key(unsigned place, bool down) const
    {
        XTestFakeDeviceKeyEvent(display, keyboard, place, down ? True : False, nullptr, 0, CurrentTime);
        XSync(display, False);
    }

    XkbStateRec keyboardState() const
    {
        XkbStateRec result{};
        XkbGetState(display, XkbUseCoreKbd, &result);
        return result;
    }
};

DesktopUser::DesktopUser() : state_(std::make_unique<State>())
{
    state_->display = XOpenDisplay(nullptr);
    if (state_->display == nullptr)
        throw std::runtime_error("there is no X server");
    int count = 0;
    XDeviceInfo* const devices = XListInputDevices(state_->display, &count);
    for (const XDeviceInfo& device : std::span(devices, static_cast<std::size_t>(count))) {
        if (device.use != IsXExtensionKeyboard)
            continue;
        if (std::string_view(device.name).find("XTEST") == std::string_view::npos)
            state_->keyboard = XOpenDevice(state_->display, device.id);
        else
            state_->synthesiser = device.id;
    }
    XFreeDeviceList(devices);
    if (state_->keyboard == nullptr)
        throw std::runtime_error("the X server has no keyboard device");
    setLayout(QStringLiteral("us"));
}

DesktopUser::~DesktopUser()
{
    for (const unsigned key : keysDown())
        state_->key(key, false);
    XkbLockModifiers(state_->display, XkbUseCoreKbd, 0xff, 0);
    setLayout(QStringLiteral("us"));
    XCloseDevice(state_->display, state_->keyboard);
    XCloseDisplay(state_->display);
}

void DesktopUser::press(unsigned place)
{
    state_->key(place, true);
}

void DesktopUser::release(unsigned place)
{
    state_->key(place, false);
}

void DesktopUser::strike(unsigned place)
{
    press(place);
    release(place);
}

void DesktopUser::chord(const std::vector<unsigned>& places)
{
    std::ranges::for_each(places, [this](unsigned place) { press(place); });
    std::ranges::for_each(std::views::reverse(places), [this](unsigned place) { release(place); });
}

void DesktopUser::movePointer(int x, int y)
{
    XTestFakeMotionEvent(state_->display, -1, x, y, CurrentTime);
    XSync(state_->display, False);
}

void DesktopUser::setLayout(const QString& layouts, unsigned group)
{
    if (layouts != state_->layouts)
        setxkbmap({QStringLiteral("-option"), QString(), layouts});
    state_->layouts = layouts;
    XkbLockGroup(state_->display, XkbUseCoreKbd, group);
    XSync(state_->display, False);
}

void DesktopUser::setLayoutOf(Keyboard keyboard, const QStringList& layout)
{
    const XID device = keyboard == Keyboard::own ? state_->keyboard->device_id : state_->synthesiser;
    setxkbmap(QStringList{QStringLiteral("-device"), QString::number(device)} + layout);
    state_->layouts.clear();
}

void DesktopUser::lockShift(bool on)
{
    XkbLockModifiers(state_->display, XkbUseCoreKbd, ShiftMask, on ? ShiftMask : 0);
    XSync(state_->display, False);
}

std::vector<unsigned> DesktopUser::keysDown() const
{
    std::array<char, 32> bits{};
    XQueryKeymap(state_->display, bits.data());
    std::vector<unsigned> result;
    for (unsigned key = 0; key < 256; ++key) {
        if ((static_cast<unsigned char>(bits[key / 8]) >> (key % 8) & 1) != 0)
            result.push_back(key);
    }
    return result;
}

unsigned DesktopUser::activeGroup() const
{
    return state_->keyboardState().group;
}

unsigned DesktopUser::modifiers() const
{
    return state_->keyboardState().mods;
}

bool DesktopUser::layoutHas(unsigned long keysym) const
{
    XkbDescPtr const map = XkbGetMap(state_->display, XkbKeySymsMask | XkbKeyTypesMask, XkbUseCoreKbd);
    bool found = false;
    const unsigned group = activeGroup();
    for (unsigned key = map->min_key_code; key <= map->max_key_code; ++key) {
        const unsigned groups = XkbKeyNumGroups(map, key);
        found = found || (groups > 0 && XkbKeySymEntry(map, key, 0, group % groups) == keysym);
    }
    XkbFreeKeyboard(map, 0, True);
    return found;
}

void DesktopUser::grabForOtherProgram(unsigned place, unsigned modifiers)
{
    XGrabKey(state_->display, static_cast<int>(place), modifiers, DefaultRootWindow(state_->display), False,
             GrabModeAsync, GrabModeAsync);
    XSync(state_->display, False);
}

void DesktopUser::killClient(unsigned long window)
{
    XKillClient(state_->display, window);
    XSync(state_->display, False);
}

} // namespace vantro::desktop
