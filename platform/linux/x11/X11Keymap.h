#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace vantro {

class X11Connection;

/// The keyboard as the server describes it at this moment: which key carries which symbol in which layout group, and
/// which keys are modifiers. A snapshot; take a new one after every change. Key codes are the X server's (8 to 255).
class X11Keymap
{
public:
    using KeyCode = unsigned;
    using Keysym = unsigned long;

    explicit X11Keymap(X11Connection& connection);
    ~X11Keymap();
    X11Keymap(const X11Keymap&) = delete;
    X11Keymap& operator=(const X11Keymap&) = delete;

    /// False when the server would not tell; every question below then has an empty answer.
    [[nodiscard]] bool isValid() const { return description_ != nullptr; }

    /// The layout group in force, 0 to 3.
    [[nodiscard]] unsigned activeGroup() const { return activeGroup_; }
    [[nodiscard]] unsigned groupCount() const { return groupCount_; }

    /// The keys that give @p keysym in @p group without any modifier.
    [[nodiscard]] std::vector<KeyCode> keysWith(Keysym keysym, unsigned group) const;
    /// The key in the place where a US keyboard has the Latin letter @p keysym.
    [[nodiscard]] std::optional<KeyCode> keyInPlaceOf(Keysym keysym) const;
    /// The Latin letter that a US keyboard has in the place of @p key.
    [[nodiscard]] std::optional<Keysym> letterInPlaceOf(KeyCode key) const;
    /// What @p key gives in @p group without any modifier.
    [[nodiscard]] std::optional<Keysym> keysym(KeyCode key, unsigned group) const;
    /// A key that carries nothing in any group.
    [[nodiscard]] std::optional<KeyCode> emptyKey() const;

    /// The modifier bits that keys with one of @p keysyms set.
    [[nodiscard]] unsigned modifierMask(const std::vector<Keysym>& keysyms) const;
    /// A key with one of @p keysyms that sets one of the bits of @p mask.
    [[nodiscard]] std::optional<KeyCode> modifierKey(unsigned mask, const std::vector<Keysym>& keysyms) const;
    /// Keys that change what others mean (AltGr and the locks among them) rather than do something themselves.
    [[nodiscard]] bool isModifier(KeyCode key) const;
    /// A modifier that is switched on and off rather than held.
    [[nodiscard]] bool isLock(KeyCode key) const;
    /// Caps Lock, Num Lock and Scroll Lock: states that must not matter to a shortcut.
    [[nodiscard]] unsigned lockMask() const { return lockMask_; }

private:
    struct Free
    {
        void operator()(void* description) const;
    };

    [[nodiscard]] std::string_view placeOf(KeyCode key) const;
    [[nodiscard]] bool carries(KeyCode key, const std::vector<Keysym>& keysyms) const;
    void readModifiers(X11Connection& connection);

    std::unique_ptr<void, Free> description_;
    std::vector<unsigned> keyModifiers_ = std::vector<unsigned>(256, 0);
    unsigned activeGroup_ = 0;
    unsigned groupCount_ = 0;
    unsigned lockMask_ = 0;
};

} // namespace vantro
