#include "platform/linux/x11/X11Keymap.h"

#include "platform/linux/x11/X11Connection.h"

#include <X11/XKBlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace vantro {

namespace {

template <typename Deleter>
XkbDescPtr asDescription(const std::unique_ptr<void, Deleter>& pointer)
{
    return static_cast<XkbDescPtr>(pointer.get());
}

// XKB names keys by row and column: AB01 is the key right of the left Shift.
struct Row
{
    std::string_view name;
    std::string_view letters;
};
constexpr std::array rows{Row{"AD", "qwertyuiop"}, Row{"AC", "asdfghjkl"}, Row{"AB", "zxcvbnm"}};

std::string keyNameOf(unsigned long letter)
{
    for (const Row& row : rows) {
        const auto column = row.letters.find(static_cast<char>(letter));
        if (letter < 0x80 && column != std::string_view::npos) {
            const auto number = column + 1;
            return std::string(row.name) + static_cast<char>('0' + number / 10) + static_cast<char>('0' + number % 10);
        }
    }
    return {};
}

} // namespace

void X11Keymap::Free::operator()(void* description) const
{
    XkbFreeKeyboard(static_cast<XkbDescPtr>(description), 0, True);
}

X11Keymap::X11Keymap(X11Connection& connection, std::optional<KeyboardDevice> keyboard)
{
    if (!connection.isOpen())
        return;
    Display* const display = connection.display();
    XkbStateRec state{};
    if (XkbGetState(display, XkbUseCoreKbd, &state) != Success)
        return;
    XkbDescPtr const description =
        XkbGetMap(display, XkbKeySymsMask | XkbKeyTypesMask | XkbModifierMapMask, keyboard.value_or(XkbUseCoreKbd));
    if (description == nullptr)
        return;
    description_.reset(description);
    activeGroup_ = state.group;
    if (XkbGetNames(display, XkbKeyNamesMask, description) != Success)
        description->names = nullptr;
    for (KeyCode key = description->min_key_code; key <= description->max_key_code; ++key)
        groupCount_ = std::max<unsigned>(groupCount_, XkbKeyNumGroups(description, key));
    readModifiers();
}

X11Keymap::~X11Keymap() = default;

void X11Keymap::readModifiers()
{
    XkbDescPtr const description = asDescription(description_);
    for (KeyCode key = description->min_key_code; key <= description->max_key_code; ++key)
        keyModifiers_[key] = description->map->modmap[key];
    lockMask_ = LockMask | modifierMask({XK_Num_Lock}) | modifierMask({XK_Scroll_Lock});
}

std::optional<X11Keymap::Keysym> X11Keymap::keysym(KeyCode key, unsigned group) const
{
    XkbDescPtr const description = asDescription(description_);
    if (!isValid() || key < description->min_key_code || key > description->max_key_code)
        return std::nullopt;
    const unsigned groups = XkbKeyNumGroups(description, key);
    if (groups == 0)
        return std::nullopt;
    // A key with fewer groups than the layout defines how to map the others.
    if (group >= groups) {
        const unsigned info = XkbKeyGroupInfo(description, key);
        switch (XkbOutOfRangeGroupAction(info)) {
        case XkbClampIntoRange:
            group = groups - 1;
            break;
        case XkbRedirectIntoRange:
            group = XkbOutOfRangeGroupNumber(info);
            if (group >= groups)
                group = 0;
            break;
        default:
            group %= groups;
        }
    }
    return XkbKeySymEntry(description, key, 0, static_cast<int>(group));
}

std::vector<X11Keymap::KeyCode> X11Keymap::keysWith(Keysym wanted, unsigned group) const
{
    std::vector<KeyCode> result;
    if (!isValid())
        return result;
    for (KeyCode key = asDescription(description_)->min_key_code; key <= asDescription(description_)->max_key_code;
         ++key) {
        if (keysym(key, group) == wanted)
            result.push_back(key);
    }
    return result;
}

std::string_view X11Keymap::placeOf(KeyCode key) const
{
    XkbDescPtr const description = asDescription(description_);
    if (!isValid() || description->names == nullptr || key < description->min_key_code ||
        key > description->max_key_code)
        return {};
    const char* const name = description->names->keys[key].name;
    return {name, strnlen(name, XkbKeyNameLength)};
}

std::optional<X11Keymap::KeyCode> X11Keymap::keyInPlaceOf(Keysym letter) const
{
    const std::string wanted = keyNameOf(letter);
    if (!isValid() || wanted.empty())
        return std::nullopt;
    for (KeyCode key = asDescription(description_)->min_key_code; key <= asDescription(description_)->max_key_code;
         ++key) {
        if (placeOf(key) == wanted)
            return key;
    }
    return std::nullopt;
}

std::optional<X11Keymap::Keysym> X11Keymap::letterInPlaceOf(KeyCode key) const
{
    const std::string_view place = placeOf(key);
    for (const Row& row : rows) {
        for (const char letter : row.letters) {
            if (!place.empty() && keyNameOf(static_cast<Keysym>(letter)) == place)
                return static_cast<Keysym>(letter);
        }
    }
    return std::nullopt;
}

bool X11Keymap::isEmpty(KeyCode key) const
{
    return XkbKeyNumGroups(asDescription(description_), key) == 0 && keyModifiers_[key] == 0;
}

std::optional<X11Keymap::KeyCode> X11Keymap::emptyKeyWith(const X11Keymap& other) const
{
    if (!isValid() || !other.isValid())
        return std::nullopt;
    XkbDescPtr const description = asDescription(description_);
    for (KeyCode key = description->max_key_code; key >= description->min_key_code; --key) {
        if (isEmpty(key) && other.isEmpty(key))
            return key;
    }
    return std::nullopt;
}

bool X11Keymap::carries(KeyCode key, const std::vector<Keysym>& keysyms) const
{
    const auto own = keysym(key, 0);
    return own && std::ranges::find(keysyms, *own) != keysyms.end();
}

bool X11Keymap::isModifier(KeyCode key) const
{
    // Modern layouts do not list AltGr among the core protocol's modifiers.
    const auto own = isValid() ? keysym(key, activeGroup_) : std::nullopt;
    return (key < keyModifiers_.size() && keyModifiers_[key] != 0) ||
           (own && (IsModifierKey(*own) || *own == XK_Scroll_Lock));
}

bool X11Keymap::isLock(KeyCode key) const
{
    return isValid() && carries(key, {XK_Caps_Lock, XK_Shift_Lock, XK_Num_Lock, XK_Scroll_Lock});
}

unsigned X11Keymap::modifierMask(const std::vector<Keysym>& keysyms) const
{
    unsigned mask = 0;
    for (KeyCode key = 0; isValid() && key < keyModifiers_.size(); ++key) {
        if (keyModifiers_[key] != 0 && carries(key, keysyms))
            mask |= keyModifiers_[key];
    }
    return mask;
}

std::optional<X11Keymap::KeyCode> X11Keymap::modifierKey(unsigned mask, const std::vector<Keysym>& keysyms) const
{
    for (KeyCode key = 0; isValid() && key < keyModifiers_.size(); ++key) {
        if ((keyModifiers_[key] & mask) != 0 && carries(key, keysyms))
            return key;
    }
    return std::nullopt;
}

} // namespace vantro
