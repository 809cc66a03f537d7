#include "platform/linux/x11/X11HotKeyManager.h"

#include "base/Logger.h"
#include "platform/KeyCode.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11ErrorTrap.h"
#include "platform/linux/x11/X11Keyboards.h"
#include "platform/linux/x11/X11Keymap.h"

#include <QCoreApplication>

#include <X11/XKBlib.h>
#include <X11/keysym.h>

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

const Logger& logger()
{
    static const Logger instance("X11HotKeyManager");
    return instance;
}

constexpr unsigned realModifiers =
    ShiftMask | LockMask | ControlMask | Mod1Mask | Mod2Mask | Mod3Mask | Mod4Mask | Mod5Mask;

unsigned toXModifiers(const X11Keymap& keymap, std::uint32_t modifiers)
{
    // Without such a key, the usual bit keeps the combination distinct from the one without the modifier.
    const auto bitOf = [&](const std::vector<X11Keymap::Keysym>& keysyms, unsigned customary) {
        const unsigned mask = keymap.modifierMask(keysyms);
        return (mask & customary) != 0 || mask == 0 ? customary : mask & (~mask + 1);
    };
    unsigned result = 0;
    if ((modifiers & Modifier::command) != 0)
        result |= ControlMask;
    if ((modifiers & Modifier::shift) != 0)
        result |= ShiftMask;
    if ((modifiers & Modifier::option) != 0)
        result |= bitOf({XK_Alt_L, XK_Alt_R, XK_Meta_L, XK_Meta_R}, Mod1Mask);
    if ((modifiers & Modifier::control) != 0)
        result |= bitOf({XK_Super_L, XK_Super_R}, Mod4Mask);
    return result;
}

/// Latin letters, digits and function keys: stable across layouts, so preferred for storage.
bool isInEveryLayout(X11Keymap::Keysym keysym)
{
    constexpr X11Keymap::Keysym firstOtherScript = 0x100;
    constexpr X11Keymap::Keysym firstFunctionKey = 0xff00;
    constexpr X11Keymap::Keysym firstUnicode = 0x01000000;
    constexpr X11Keymap::Keysym firstVendorKey = 0x10000000;
    return keysym < firstOtherScript || (keysym >= firstFunctionKey && keysym < firstUnicode) ||
           keysym >= firstVendorKey;
}

/// All subsets of the bits of @p mask, including the empty one.
std::vector<unsigned> subsets(unsigned mask)
{
    std::vector<unsigned> result;
    unsigned subset = mask;
    do {
        result.push_back(subset);
        subset = (subset - 1) & mask;
    } while (subset != mask);
    return result;
}

} // namespace

X11HotKeyManager::X11HotKeyManager(X11Connection& connection) : connection_(connection)
{
    if (!connection_.isOpen())
        return;
    Display* const display = connection_.display();
    // Otherwise auto-repeat looks like a series of presses and releases.
    Bool supported = False;
    XkbSetDetectableAutoRepeat(display, True, &supported);
    if (supported == 0)
        logger().error(QStringLiteral("The X server cannot tell auto-repeat from key presses"));
    XkbSelectEvents(display, XkbUseCoreKbd, XkbMapNotifyMask | XkbNewKeyboardNotifyMask,
                    XkbMapNotifyMask | XkbNewKeyboardNotifyMask);
    XkbSelectEventDetails(display, XkbUseCoreKbd, XkbStateNotify, XkbGroupStateMask, XkbGroupStateMask);
    XFlush(display);
    connection_.addListener(this, [this](XEvent& event) { handleEvent(event); });
    connect(&connection_, &X11Connection::lost, this, &X11HotKeyManager::connectionLost);
    connect(&connection_, &X11Connection::keyboardUngrabbed, this, [this] {
        for (Held& held : held_)
            held.isReleaseHeard = false;
    });
}

X11HotKeyManager::~X11HotKeyManager()
{
    hotKeys_.clear();
    release({grabs_.begin(), grabs_.end()});
}

void X11HotKeyManager::registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers)
{
    if (!connection_.isOpen())
        throw HotKeyError(X11Connection::unavailableReason());
    HotKey hotKey{id, keyCode, modifiers, {}, {}};
    locate(hotKey);
    grab(hotKey);
    if (const auto reason = whyNotBound(hotKey)) {
        release(hotKey.grabs);
        release(hotKey.elsewhere);
        throw HotKeyError(*reason);
    }
    hotKeys_.push_back(std::move(hotKey));
}

void X11HotKeyManager::unregisterHotKey(std::uint32_t id)
{
    const auto found = std::ranges::find(hotKeys_, id, &HotKey::id);
    if (found == hotKeys_.end())
        return;
    const HotKey unwanted = std::move(*found);
    hotKeys_.erase(found);
    std::erase_if(held_, [id](const Held& held) { return held.id == id; });
    release(unwanted.grabs);
    release(unwanted.elsewhere);
}

std::optional<std::uint32_t> X11HotKeyManager::keyCodeOf(std::uint32_t nativeScanCode) const
{
    const X11Keymap keymap(connection_);
    if (!keymap.isValid() || keymap.isModifier(nativeScanCode))
        return std::nullopt;
    const auto own = keymap.keysym(nativeScanCode, keymap.activeGroup());
    if (!own || *own == NoSymbol)
        return std::nullopt;
    if (isInEveryLayout(*own))
        return KeyCode::fromKeysym(static_cast<std::uint32_t>(*own));
    for (unsigned group = 0; group < keymap.groupCount(); ++group) {
        if (const auto other = keymap.keysym(nativeScanCode, group); other && isInEveryLayout(*other))
            return KeyCode::fromKeysym(static_cast<std::uint32_t>(*other));
    }
    const auto letter = keymap.letterInPlaceOf(nativeScanCode);
    return KeyCode::fromKeysym(static_cast<std::uint32_t>(letter.value_or(*own)));
}

void X11HotKeyManager::locate(HotKey& hotKey) const
{
    hotKey.grabs = resolve(X11Keymap(connection_), hotKey);
    hotKey.elsewhere.clear();
    for (const KeyboardDevice keyboard : attachedKeyboards(connection_)) {
        for (const Grab& grab : resolve(X11Keymap(connection_, keyboard), hotKey)) {
            if (std::ranges::find(hotKey.grabs, grab) == hotKey.grabs.end())
                hotKey.elsewhere.push_back(grab);
        }
    }
}

std::vector<X11HotKeyManager::Grab> X11HotKeyManager::resolve(const X11Keymap& keymap, const HotKey& hotKey) const
{
    const auto keysym = KeyCode::toKeysym(hotKey.keyCode);
    if (!keysym || !keymap.isValid())
        return {};
    const auto keysIn = [&](unsigned group) {
        auto keys = keymap.keysWith(*keysym, group);
        std::erase(keys, connection_.borrowedKeyCode());
        return keys;
    };
    std::vector<X11Keymap::KeyCode> keys = keysIn(keymap.activeGroup());
    for (unsigned group = 0; keys.empty() && group < keymap.groupCount(); ++group)
        keys = keysIn(group);
    if (const auto inPlace = keymap.keyInPlaceOf(*keysym); keys.empty() && inPlace)
        keys.push_back(*inPlace);

    std::vector<Grab> result;
    const unsigned modifiers = toXModifiers(keymap, hotKey.modifiers);
    for (const auto key : keys) {
        for (const unsigned locks : subsets(keymap.lockMask()))
            result.push_back({key, modifiers | locks});
    }
    return result;
}

void X11HotKeyManager::grab(const HotKey& hotKey)
{
    grab(hotKey.grabs);
    grab(hotKey.elsewhere);
}

void X11HotKeyManager::grab(const std::vector<Grab>& wanted)
{
    X11ErrorTrap trap(connection_);
    for (const Grab& grab : wanted) {
        if (!connection_.isOpen() || grabs_.contains(grab))
            continue;
        XGrabKey(connection_.display(), static_cast<int>(grab.key), grab.modifiers, connection_.rootWindow(), False,
                 GrabModeAsync, GrabModeAsync);
        if (!trap.sync())
            grabs_.insert(grab);
    }
}

void X11HotKeyManager::release(const std::vector<Grab>& unwanted)
{
    const X11ErrorTrap trap(connection_);
    for (const Grab& grab : unwanted) {
        if (!isWanted(grab) && grabs_.erase(grab) > 0 && connection_.isOpen())
            XUngrabKey(connection_.display(), static_cast<int>(grab.key), grab.modifiers, connection_.rootWindow());
    }
}

std::optional<QString> X11HotKeyManager::whyNotBound(const HotKey& hotKey) const
{
    const QString name = shortcutText(hotKey.keyCode, hotKey.modifiers);
    if (hotKey.grabs.empty())
        return QCoreApplication::translate("X11HotKeyManager",
                                           "No key of this keyboard gives %1. Choose another shortcut.")
            .arg(name);
    if (std::ranges::all_of(hotKey.grabs, [this](const Grab& grab) { return grabs_.contains(grab); }))
        return std::nullopt;
    return QCoreApplication::translate("X11HotKeyManager",
                                       "%1 is already used by another program. Choose another shortcut, or free it in "
                                       "that program or in the desktop's keyboard settings.")
        .arg(name);
}

bool X11HotKeyManager::isWanted(const Grab& grab) const
{
    return std::ranges::any_of(hotKeys_, [&](const HotKey& hotKey) {
        return std::ranges::find(hotKey.grabs, grab) != hotKey.grabs.end() ||
               std::ranges::find(hotKey.elsewhere, grab) != hotKey.elsewhere.end();
    });
}

void X11HotKeyManager::handleEvent(XEvent& event)
{
    switch (event.type) {
    case KeyPress:
        keyPressed(event.xkey.keycode, event.xkey.state);
        return;
    case KeyRelease:
        keyReleased(event.xkey.keycode);
        return;
    default:
        break;
    }
    if (event.type != MappingNotify && event.type != connection_.xkbEventBase())
        return;
    // A layout change causes dozens of events.
    if (!std::exchange(rebindPending_, true))
        QMetaObject::invokeMethod(this, &X11HotKeyManager::rebind, Qt::QueuedConnection);
}

void X11HotKeyManager::keyPressed(unsigned key, unsigned state)
{
    std::erase_if(held_, [key](const Held& held) { return held.key == key && !held.isReleaseHeard; });
    if (std::ranges::find(held_, key, &Held::key) != held_.end())
        return;
    const Grab grab{key, state & realModifiers};
    std::vector<std::uint32_t> ids;
    for (const HotKey& hotKey : hotKeys_) {
        if (isMeant(hotKey, grab))
            ids.push_back(hotKey.id);
    }
    if (ids.empty() && !held_.empty()) {
        if (const auto other = keyCodeOf(key))
            Q_EMIT otherKeyPressed(*other);
        return;
    }
    for (const auto id : ids)
        held_.push_back({key, id, true});
    for (const auto id : ids)
        Q_EMIT hotKeyPressed(id);
}

/// The keyboard that was pressed is the one in use by now.
bool X11HotKeyManager::isMeant(const HotKey& hotKey, const Grab& pressed) const
{
    const std::vector<Grab> meant = hotKey.elsewhere.empty() ? hotKey.grabs : resolve(X11Keymap(connection_), hotKey);
    return std::ranges::find(meant, pressed) != meant.end();
}

// Matched by key alone: the modifiers may be up already, and the layout may have changed.
void X11HotKeyManager::keyReleased(unsigned key)
{
    std::vector<std::uint32_t> ids;
    for (const Held& held : held_) {
        if (held.key == key)
            ids.push_back(held.id);
    }
    if (ids.empty() && !held_.empty()) {
        if (const auto other = keyCodeOf(key))
            Q_EMIT otherKeyReleased(*other);
        return;
    }
    std::erase_if(held_, [key](const Held& held) { return held.key == key; });
    for (const auto id : ids)
        Q_EMIT hotKeyReleased(id);
}

void X11HotKeyManager::rebind()
{
    rebindPending_ = false;
    if (!X11Keymap(connection_).isValid())
        return;
    const std::vector<Grab> before(grabs_.begin(), grabs_.end());
    std::vector<std::uint32_t> bound;
    for (HotKey& hotKey : hotKeys_) {
        if (!whyNotBound(hotKey))
            bound.push_back(hotKey.id);
        locate(hotKey);
    }
    release(before);
    std::vector<std::pair<std::uint32_t, QString>> lost;
    for (const HotKey& hotKey : hotKeys_) {
        grab(hotKey);
        if (const auto reason = whyNotBound(hotKey); reason && std::ranges::find(bound, hotKey.id) != bound.end())
            lost.emplace_back(hotKey.id, *reason);
    }
    for (const auto& [id, reason] : lost)
        Q_EMIT hotKeyLost(id, reason);
    Q_EMIT keyboardChanged();
}

void X11HotKeyManager::connectionLost()
{
    grabs_.clear();
    for (const Held& key : std::exchange(held_, {}))
        Q_EMIT hotKeyReleased(key.id);
    for (const HotKey& hotKey : std::exchange(hotKeys_, {}))
        Q_EMIT hotKeyLost(hotKey.id, X11Connection::unavailableReason());
}

} // namespace vantro
