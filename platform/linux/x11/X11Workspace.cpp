#include "platform/linux/x11/X11Workspace.h"

#include "platform/linux/windows/OwnWindows.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11ErrorTrap.h"
#include "platform/linux/x11/X11UserActivity.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace vantro {

namespace {

struct XFreeDeleter
{
    void operator()(void* data) const { XFree(data); }
};

/// Source indication "pager" (EWMH): window managers grant requests on the user's behalf.
constexpr long sourceIsUser = 2;
constexpr long maxPropertyLongs = 4096;
/// In the place of a time stamp, so that a window manager does not take the answer for one to itself.
constexpr long pingMark = 0x76616e;
/// Toolkits send their answer with the one mask or the other.
constexpr long pingAnswers = StructureNotifyMask | SubstructureNotifyMask;

/// Selected on each window that has been in front, and so the mark of a window that is known; next to never sent.
constexpr long knownMark = ColormapChangeMask;
constexpr unsigned numberBits = 32;

} // namespace

X11Workspace::X11Workspace(X11Connection& connection) : connection_(connection)
{
    if (!connection_.isOpen())
        return;
    activeWindowAtom_ = XInternAtom(connection_.display(), "_NET_ACTIVE_WINDOW", False);
    stateAtom_ = XInternAtom(connection_.display(), "WM_STATE", False);
    supportedAtom_ = XInternAtom(connection_.display(), "_NET_SUPPORTED", False);
    const std::string compositor = "_NET_WM_CM_S" + std::to_string(DefaultScreen(connection_.display()));
    compositorAtom_ = XInternAtom(connection_.display(), compositor.c_str(), False);
    protocolsAtom_ = XInternAtom(connection_.display(), "WM_PROTOCOLS", False);
    pingAtom_ = XInternAtom(connection_.display(), "_NET_WM_PING", False);
    connection_.selectRootEvents(PropertyChangeMask);
    connection_.addListener(this, [this](XEvent& event) {
        noteAnswer(event);
        if (event.type == PropertyNotify && event.xproperty.window == connection_.rootWindow() &&
            event.xproperty.atom == activeWindowAtom_)
            Q_EMIT frontWindowChanged();
    });
}

std::optional<WindowID> X11Workspace::frontWindow() const
{
    if (!connection_.isOpen())
        return std::nullopt;
    const X11ErrorTrap trap(connection_);
    std::optional<unsigned long> front;
    if (!managerSupports(activeWindowAtom_)) {
        front = focusedTopLevel(TopLevel::Any);
    } else {
        // The property lags, and some managers leave a closed window in it when no other one follows.
        const auto active = windowProperty(connection_.rootWindow(), activeWindowAtom_, XA_WINDOW);
        XWindowAttributes attributes{};
        const bool isThere =
            !active.empty() && XGetWindowAttributes(connection_.display(), active.front(), &attributes) != 0;
        front = isThere ? std::optional(active.front()) : focusedTopLevel(TopLevel::Managed);
    }
    return front ? std::optional(identify(*front)) : std::nullopt;
}

/// The mark goes with the window: one that lacks it has come after the one that was known by its number.
WindowID X11Workspace::identify(unsigned long number) const
{
    XWindowAttributes attributes{};
    if (isOwn(number) || XGetWindowAttributes(connection_.display(), number, &attributes) == 0)
        return number;
    const auto [known, isNew] = known_.try_emplace(number, number);
    if ((attributes.your_event_mask & knownMark) == 0) {
        XSelectInput(connection_.display(), number, attributes.your_event_mask | knownMark);
        if (!isNew)
            known->second += WindowID(1) << numberBits;
    }
    return known->second;
}

bool X11Workspace::windowExists(WindowID window) const
{
    if (!connection_.isOpen())
        return false;
    const X11ErrorTrap trap(connection_);
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(connection_.display(), numberOf(window), &attributes) == 0)
        return false;
    const auto known = known_.find(numberOf(window));
    if (isOwn(window) || known == known_.end())
        return true;
    return known->second == window && (attributes.your_event_mask & knownMark) != 0;
}

bool X11Workspace::hasInputFocus(WindowID window) const
{
    if (!windowExists(window))
        return false;
    const X11ErrorTrap trap(connection_);
    for (auto ancestor = focusedWindow(); ancestor; ancestor = parentOf(*ancestor)) {
        if (*ancestor == numberOf(window))
            return true;
    }
    return false;
}

void X11Workspace::activateWindow(WindowID window)
{
    if (!windowExists(window))
        return;
    const X11ErrorTrap trap(connection_);
    Display* const display = connection_.display();
    if (!managerSupports(activeWindowAtom_)) {
        XRaiseWindow(display, numberOf(window));
        XSetInputFocus(display, numberOf(window), RevertToParent, CurrentTime);
        return;
    }
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = numberOf(window);
    event.xclient.message_type = activeWindowAtom_;
    event.xclient.format = 32;
    event.xclient.data.l[0] = sourceIsUser;
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, connection_.rootWindow(), False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
}

/// EWMH: a program sends the message back to the root window. What else comes from there is looked at only meanwhile.
bool X11Workspace::ping(WindowID window)
{
    if (!connection_.isOpen())
        return false;
    const X11ErrorTrap trap(connection_);
    std::erase_if(pings_, [&](const Ping& ping) { return ping.window == window || !windowExists(ping.window); });
    const auto protocols = windowProperty(numberOf(window), protocolsAtom_, XA_ATOM);
    const bool isAskable = windowExists(window) && std::ranges::find(protocols, pingAtom_) != protocols.end();
    if (isAskable)
        pings_.push_back({window});
    awaitAnswers();
    if (!isAskable)
        return false;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = numberOf(window);
    event.xclient.message_type = protocolsAtom_;
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(pingAtom_);
    event.xclient.data.l[1] = pingMark;
    event.xclient.data.l[2] = static_cast<long>(numberOf(window));
    return XSendEvent(connection_.display(), numberOf(window), False, NoEventMask, &event) != 0;
}

void X11Workspace::noteAnswer(const XEvent& event)
{
    const XClientMessageEvent& message = event.xclient;
    const bool isAnswer = event.type == ClientMessage && message.message_type == protocolsAtom_ &&
                          message.data.l[0] == static_cast<long>(pingAtom_) && message.data.l[1] == pingMark;
    if (!isAnswer)
        return;
    for (Ping& ping : pings_)
        ping.isAnswered = ping.isAnswered || numberOf(ping.window) == static_cast<unsigned long>(message.data.l[2]);
    awaitAnswers();
}

void X11Workspace::awaitAnswers()
{
    if (std::ranges::all_of(pings_, &Ping::isAnswered))
        connection_.deselectRootEvents(pingAnswers);
    else
        connection_.selectRootEvents(pingAnswers);
}

bool X11Workspace::hasAnswered(WindowID window) const
{
    const auto ping = std::ranges::find(pings_, window, &Ping::window);
    return ping != pings_.end() && ping->isAnswered;
}

bool X11Workspace::isOwn(WindowID window) const
{
    return ownwindows::find(window) != nullptr;
}

bool X11Workspace::takesText(WindowID window) const
{
    return ownwindows::takesText(window);
}

QStringList X11Workspace::windowClass(WindowID window) const
{
    if (!windowExists(window))
        return {};
    const X11ErrorTrap trap(connection_);
    XClassHint hint{};
    if (XGetClassHint(connection_.display(), numberOf(window), &hint) == 0)
        return {};
    const std::unique_ptr<char, XFreeDeleter> className(hint.res_class);
    const std::unique_ptr<char, XFreeDeleter> instanceName(hint.res_name);
    return {QString::fromLocal8Bit(className.get()), QString::fromLocal8Bit(instanceName.get())};
}

bool X11Workspace::openUrl(const QString& url)
{
    return ownwindows::openUrl(url);
}

bool X11Workspace::managerSupports(unsigned long atom) const
{
    const auto supported = windowProperty(connection_.rootWindow(), supportedAtom_, XA_ATOM);
    return std::ranges::find(supported, atom) != supported.end();
}

std::vector<unsigned long> X11Workspace::windowProperty(unsigned long window, unsigned long atom,
                                                        unsigned long type) const
{
    Atom actualType = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(connection_.display(), window, atom, 0, maxPropertyLongs, False, type, &actualType, &format,
                           &count, &left, &data) != Success)
        return {};
    const std::unique_ptr<unsigned char, XFreeDeleter> owner(data);
    if (data == nullptr || format != 32 || actualType != type)
        return {};
    const auto* const values = reinterpret_cast<const unsigned long*>(data);
    return {values, values + count};
}

/// The top-level window that contains the focus. Managed windows have WM_STATE and may be inside a frame; windows
/// without it belong to the window manager.
std::optional<unsigned long> X11Workspace::focusedTopLevel(TopLevel kind) const
{
    std::optional<unsigned long> outermost;
    for (auto window = focusedWindow(); window && *window != connection_.rootWindow(); window = parentOf(*window)) {
        if (!windowProperty(*window, stateAtom_, stateAtom_).empty())
            return window;
        outermost = window;
    }
    return kind == TopLevel::Any ? outermost : std::nullopt;
}

/// The window that receives key presses; with focus PointerRoot, the innermost one below the pointer.
std::optional<unsigned long> X11Workspace::focusedWindow() const
{
    Display* const display = connection_.display();
    Window focus = None;
    int revertTo = 0;
    if (XGetInputFocus(display, &focus, &revertTo) == 0 || !connection_.isOpen() || focus == None)
        return std::nullopt;
    if (focus != PointerRoot)
        return focus;
    std::optional<unsigned long> innermost;
    Window child = connection_.rootWindow();
    while (child != None) {
        innermost = child;
        Window root = None;
        int rootX = 0;
        int rootY = 0;
        int x = 0;
        int y = 0;
        unsigned mask = 0;
        if (XQueryPointer(display, *innermost, &root, &child, &rootX, &rootY, &x, &y, &mask) == 0)
            break;
    }
    return innermost;
}

std::optional<unsigned long> X11Workspace::parentOf(unsigned long window) const
{
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    if (XQueryTree(connection_.display(), window, &root, &parent, &children, &count) == 0)
        return std::nullopt;
    const std::unique_ptr<Window, XFreeDeleter> owner(children);
    return parent != None ? std::optional(parent) : std::nullopt;
}

bool X11Workspace::isCompositing() const
{
    return connection_.isOpen() && XGetSelectionOwner(connection_.display(), compositorAtom_) != None;
}

std::unique_ptr<UserActivity> X11Workspace::watchUser()
{
    return std::make_unique<X11UserActivity>(connection_);
}

} // namespace vantro
