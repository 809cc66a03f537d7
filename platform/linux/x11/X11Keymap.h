#pragma once

#include "platform/linux/x11/X11Keyboards.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace vantro {

class X11Connection;

/// A snapshot of one keyboard's mapping: the symbol of each key in each layout group, and the modifiers. Create a new
/// one after every change. Key codes are the X server's (8 to 255).
class X11Keymap
{
public:
    using KeyCode = unsigned;
    using Keysym = unsigned long;

    /// By default of the keyboard that was pressed last.
    explicit X11Keymap(X11Connection& connection, std::optional<KeyboardDevice> keyboard = {});
    ~X11Keymap();
    X11Keymap(const X11Keymap&) = delete;
    X11Keymap& operator=(const X11Keymap&) = delete;

    /// False if the mapping could not be read; all queries then return empty results.
    [[nodiscard]] bool isValid() const { return description_ != nullptr; }

    /// The active layout group, 0 to 3.
    [[nodiscard]] unsigned activeGroup() const { return activeGroup_; }
    [[nodiscard]] unsigned groupCount() const { return groupCount_; }

    /// The keys with the unmodified symbol @p keysym in @p group.
    [[nodiscard]] std::vector<KeyCode> keysWith(Keysym keysym, unsigned group) const;
    /// The key at the US position of the Latin letter @p keysym.
    [[nodiscard]] std::optional<KeyCode> keyInPlaceOf(Keysym keysym) const;
    /// The Latin letter of a US keyboard at the position of @p key.
    [[nodiscard]] std::optional<Keysym> letterInPlaceOf(KeyCode key) const;
    /// The unmodified symbol of @p key in @p group.
    [[nodiscard]] std::optional<Keysym> keysym(KeyCode key, unsigned group) const;
    /// The last key without a symbol in any group, here and on @p other.
    [[nodiscard]] std::optional<KeyCode> emptyKeyWith(const X11Keymap& other) const;

    /// The modifier bits set by keys with one of @p keysyms.
    [[nodiscard]] unsigned modifierMask(const std::vector<Keysym>& keysyms) const;
    /// A key with one of @p keysyms that sets one of the bits of @p mask.
    [[nodiscard]] std::optional<KeyCode> modifierKey(unsigned mask, const std::vector<Keysym>& keysyms) const;
    /// Includes AltGr and the locks.
    [[nodiscard]] bool isModifier(KeyCode key) const;
    /// A modifier that is toggled rather than held.
    [[nodiscard]] bool isLock(KeyCode key) const;
    /// Caps Lock, Num Lock and Scroll Lock, which shortcuts must ignore.
    [[nodiscard]] unsigned lockMask() const { return lockMask_; }

private:
    struct Free
    {
        void operator()(void* description) const;
    };

    [[nodiscard]] std::string_view placeOf(KeyCode key) const;
    [[nodiscard]] bool isEmpty(KeyCode key) const;
    [[nodiscard]] bool carries(KeyCode key, const std::vector<Keysym>& keysyms) const;
    void readModifiers();

    std::unique_ptr<void, Free> description_;
    std::vector<unsigned> keyModifiers_ = std::vector<unsigned>(256, 0);
    unsigned activeGroup_ = 0;
    unsigned groupCount_ = 0;
    unsigned lockMask_ = 0;
};

} // namespace vantro
