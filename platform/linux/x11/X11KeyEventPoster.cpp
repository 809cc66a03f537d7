#include "platform/linux/x11/X11KeyEventPoster.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11ErrorTrap.h"
#include "platform/linux/x11/X11Keyboards.h"
#include "platform/linux/x11/X11Keymap.h"

#include <QCoreApplication>

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <span>

using namespace std::chrono_literals;

namespace vantro {

namespace {

/// Programs look up the keymap when they process the key press, which may be late.
constexpr auto borrowedKeyTime = 3000ms;
constexpr long maxWindowTypes = 16;

QString tr(const char* text)
{
    return QCoreApplication::translate("X11KeyEventPoster", text);
}

void fakeKey(Display* display, unsigned key, bool down)
{
    XTestFakeKeyEvent(display, key, down ? True : False, CurrentTime);
}

bool anyOrdinary(const std::vector<unsigned>& keys, const X11Keymap& keymap)
{
    return std::ranges::any_of(keys, [&](unsigned key) { return !keymap.isModifier(key); });
}

} // namespace

/// Keys in the order of pressing, and the layout group that gives the last one its symbol.
struct X11KeyEventPoster::Stroke
{
    std::vector<unsigned> keys;
    unsigned group = 0;
};

bool hasXTest(X11Connection& connection)
{
    int eventBase = 0;
    int errorBase = 0;
    int major = 0;
    int minor = 0;
    return connection.isOpen() &&
           XTestQueryExtension(connection.display(), &eventBase, &errorBase, &major, &minor) != 0;
}

X11KeyEventPoster::X11KeyEventPoster(X11Connection& connection)
    : connection_(connection)
    , hasXTest_(hasXTest(connection))
{
    if (connection_.isOpen())
        hiddenWindow_ = XCreateWindow(connection_.display(), connection_.rootWindow(), 0, 0, 1, 1, 0, 0, InputOnly,
                                      CopyFromParent, 0, nullptr);
    returnTimer_.setSingleShot(true);
    returnTimer_.setInterval(borrowedKeyTime);
    QObject::connect(&returnTimer_, &QTimer::timeout, &returnTimer_, [this] { returnBorrowedKey(); });
}

X11KeyEventPoster::~X11KeyEventPoster()
{
    returnBorrowedKey();
    if (connection_.isOpen())
        XDestroyWindow(connection_.display(), hiddenWindow_);
}

void X11KeyEventPoster::postPaste(PasteChord chord)
{
    if (!connection_.isOpen())
        throw KeyEventError(X11Connection::unavailableReason());
    if (!hasXTest_)
        throw KeyEventError(tr("The X server does not let programs type (its XTEST extension is missing)."));
    Display* const display = connection_.display();
    X11ErrorTrap trap(connection_);
    const Stroke stroke = strokeFor(chord);

    XkbStateRec state{};
    XkbGetState(display, XkbUseCoreKbd, &state);
    const bool capsLock = (state.locked_mods & LockMask) != 0;
    // Everything up to the last release is sent in one flush: all or nothing.
    if (capsLock)
        XkbLockModifiers(display, XkbUseCoreKbd, LockMask, 0);
    if (state.group != stroke.group)
        XkbLockGroup(display, XkbUseCoreKbd, stroke.group);
    std::ranges::for_each(stroke.keys, [&](unsigned key) { fakeKey(display, key, true); });
    std::for_each(stroke.keys.rbegin(), stroke.keys.rend(), [&](unsigned key) { fakeKey(display, key, false); });
    if (state.group != stroke.group)
        XkbLockGroup(display, XkbUseCoreKbd, state.locked_group);
    if (capsLock)
        XkbLockModifiers(display, XkbUseCoreKbd, LockMask, LockMask);
    if (trap.sync())
        throw KeyEventError(tr("The X server refused the paste keystroke."));
}

X11KeyEventPoster::Stroke X11KeyEventPoster::strokeFor(PasteChord chord)
{
    const X11Keymap pressed(connection_);
    const X11Keymap keymap(connection_, synthesisingKeyboard(connection_));
    if (!pressed.isValid() || !keymap.isValid())
        throw KeyEventError(tr("The X server did not report the keyboard layout."));
    // The grab of our own held hot key would swallow the keystroke.
    if (anyOrdinary(keysDown(), pressed))
        connection_.ungrabKeyboard();
    freeModifiers(pressed);

    Stroke stroke{{}, keymap.activeGroup()};
    const auto addModifier = [&](unsigned mask, const std::vector<X11Keymap::Keysym>& keysyms) {
        const auto key = keymap.modifierKey(mask, keysyms);
        if (!key)
            throw KeyEventError(tr("The keyboard layout has no Control or no Shift key, so nothing can be pasted."));
        stroke.keys.push_back(*key);
    };
    if (chord != PasteChord::ShiftInsert)
        addModifier(ControlMask, {XK_Control_L, XK_Control_R});
    if (chord != PasteChord::ControlV)
        addModifier(ShiftMask, {XK_Shift_L, XK_Shift_R});

    const X11Keymap::Keysym keysym = chord == PasteChord::ShiftInsert ? XK_Insert : XK_v;
    std::vector<X11Keymap::KeyCode> keys = keymap.keysWith(keysym, stroke.group);
    for (unsigned group = 0; keys.empty() && group < keymap.groupCount(); ++group) {
        keys = keymap.keysWith(keysym, group);
        if (!keys.empty())
            stroke.group = group;
    }
    stroke.keys.push_back(keys.empty() ? borrowKey(keymap, pressed, keysym) : keys.front());
    if (returnTimer_.isActive())
        returnTimer_.start();
    return stroke;
}

bool X11KeyEventPoster::isOrdinaryKeyDown() const
{
    if (!connection_.isOpen())
        return false;
    const std::vector<unsigned> down = keysDown();
    return !down.empty() && anyOrdinary(down, X11Keymap(connection_));
}

/// Asks for the keyboard on behalf of a window that cannot get it: nobody notices, and the refusal tells why.
bool X11KeyEventPoster::isKeyboardTaken() const
{
    if (!connection_.isOpen())
        return false;
    const X11ErrorTrap trap(connection_);
    return XGrabKeyboard(connection_.display(), hiddenWindow_, False, GrabModeAsync, GrabModeAsync, CurrentTime) ==
           AlreadyGrabbed;
}

/// Menus are children of the root window, whichever window manager runs, and toolkits mark them.
bool X11KeyEventPoster::isMenuOpen() const
{
    if (!connection_.isOpen())
        return false;
    const X11ErrorTrap trap(connection_);
    Window root = None;
    Window parent = None;
    Window* list = nullptr;
    unsigned count = 0;
    if (XQueryTree(connection_.display(), connection_.rootWindow(), &root, &parent, &list, &count) == 0)
        return false;
    const std::unique_ptr<Window, decltype(&XFree)> owner(list, &XFree);
    return std::ranges::any_of(std::span(list, count), [this](Window window) { return isMenu(window); });
}

bool X11KeyEventPoster::isMenu(unsigned long window) const
{
    Display* const display = connection_.display();
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(display, window, &attributes) == 0 || attributes.map_state != IsViewable)
        return false;
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(display, window, XInternAtom(display, "_NET_WM_WINDOW_TYPE", False), 0, maxWindowTypes,
                           False, XA_ATOM, &type, &format, &count, &left, &data) != Success)
        return false;
    const std::unique_ptr<unsigned char, decltype(&XFree)> owner(data, &XFree);
    if (data == nullptr || type != XA_ATOM || format != 32)
        return false;
    const std::array menus{XInternAtom(display, "_NET_WM_WINDOW_TYPE_MENU", False),
                           XInternAtom(display, "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU", False),
                           XInternAtom(display, "_NET_WM_WINDOW_TYPE_POPUP_MENU", False),
                           XInternAtom(display, "_NET_WM_WINDOW_TYPE_COMBO", False)};
    const std::span types(reinterpret_cast<const Atom*>(data), count);
    return std::ranges::find_first_of(types, menus) != types.end();
}

void X11KeyEventPoster::freeModifiers(const X11Keymap& keymap)
{
    Display* const display = connection_.display();
    for (const unsigned key : keysDown()) {
        if (keymap.isModifier(key) && !keymap.isLock(key))
            fakeKey(display, key, false);
    }
    // Sticky keys latch modifiers without a key being down.
    XkbStateRec state{};
    XkbGetState(display, XkbUseCoreKbd, &state);
    if ((state.latched_mods & ~keymap.lockMask()) != 0)
        XkbLatchModifiers(display, XkbUseCoreKbd, state.latched_mods & ~keymap.lockMask(), 0);
    if ((state.locked_mods & ~keymap.lockMask()) != 0)
        XkbLockModifiers(display, XkbUseCoreKbd, state.locked_mods & ~keymap.lockMask(), 0);
}

/// The server changes the key on all keyboards, so none of them may need it.
unsigned X11KeyEventPoster::borrowKey(const X11Keymap& keymap, const X11Keymap& pressed, unsigned long keysym)
{
    const auto key = keymap.emptyKeyWith(pressed);
    if (!key)
        throw KeyEventError(
            tr("The keyboard layout has no key for the paste keystroke and no unused key to map it to."));
    std::array<KeySym, 2> keysyms{keysym, keysym == XK_v ? XK_V : keysym};
    XChangeKeyboardMapping(connection_.display(), static_cast<int>(*key), keysyms.size(), keysyms.data(), 1);
    connection_.setBorrowedKeyCode(*key);
    borrowedKeysym_ = keysym;
    returnTimer_.start();
    return *key;
}

void X11KeyEventPoster::returnBorrowedKey()
{
    returnTimer_.stop();
    const unsigned key = connection_.borrowedKeyCode();
    if (key == 0 || !connection_.isOpen())
        return;
    const X11ErrorTrap trap(connection_);
    // The user may have switched to a layout that uses the key.
    const auto carriers = X11Keymap(connection_).keysWith(borrowedKeysym_, 0);
    if (std::ranges::find(carriers, key) != carriers.end()) {
        std::array<KeySym, 2> nothing{NoSymbol, NoSymbol};
        XChangeKeyboardMapping(connection_.display(), static_cast<int>(key), nothing.size(), nothing.data(), 1);
    }
    connection_.setBorrowedKeyCode(0);
}

std::vector<unsigned> X11KeyEventPoster::keysDown() const
{
    std::array<char, 32> bits{};
    XQueryKeymap(connection_.display(), bits.data());
    std::vector<unsigned> result;
    // If the connection is lost meanwhile, the bits are undefined.
    for (unsigned key = 0; connection_.isOpen() && key < bits.size() * 8; ++key) {
        if ((static_cast<unsigned char>(bits[key / 8]) >> (key % 8) & 1) != 0)
            result.push_back(key);
    }
    return result;
}

} // namespace vantro
