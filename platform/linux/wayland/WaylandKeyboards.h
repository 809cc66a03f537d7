#pragma once

#include <cstdint>
#include <memory>

namespace vantro {

class WaylandConnection;
class WaylandKeymap;

/// What a compositor lets a program press keys with. Keys are the kernel's numbers. Main thread only.
class WaylandKeyboard
{
public:
    virtual ~WaylandKeyboard() = default;

    /// By whichever protocol the compositor has; null if it has none. Both must outlive the result.
    [[nodiscard]] static std::unique_ptr<WaylandKeyboard> of(WaylandConnection& connection,
                                                             const WaylandKeymap& keymap);

    /// The protocol's name.
    [[nodiscard]] virtual const char* way() const = 0;
    /// The key that a program takes for Ctrl+V's second one.
    [[nodiscard]] virtual std::uint32_t keyOfV() const = 0;
    /// Lets go of the modifiers that the user holds, where they would count.
    virtual void freeModifiers() {}
    /// @p modifiers: what is held afterwards, in the bits of X's core modifiers.
    virtual void press(std::uint32_t key, bool isDown, std::uint32_t modifiers) = 0;
};

} // namespace vantro
