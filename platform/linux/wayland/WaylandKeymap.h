#pragma once

#include <cstdint>
#include <memory>
#include <optional>

struct wl_keyboard;
struct wl_seat;
struct xkb_keymap;

namespace vantro {

class WaylandConnection;

/// The layouts of the user's keyboard, as the compositor gives them and changes them. Keys are the kernel's numbers.
/// Main thread only.
class WaylandKeymap
{
public:
    /// @p connection must outlive this object.
    explicit WaylandKeymap(const WaylandConnection& connection);
    ~WaylandKeymap();
    WaylandKeymap(const WaylandKeymap&) = delete;
    WaylandKeymap& operator=(const WaylandKeymap&) = delete;

    /// The stored code (platform/KeyCode.h) of a key's unmodified symbol; where that is none, of what another of the
    /// layouts has there. nullopt for modifiers and for keys without a symbol.
    [[nodiscard]] std::optional<std::uint32_t> keyCodeOf(std::uint32_t key) const;
    /// The key with this unmodified symbol, in the first of the layouts that has one.
    [[nodiscard]] std::optional<std::uint32_t> keyWith(std::uint32_t keysym) const;

private:
    struct Callbacks;

    [[nodiscard]] std::optional<std::uint32_t> keysym(std::uint32_t key, std::uint32_t layout) const;
    void adopt(int descriptor, std::uint32_t sizeBytes);

    wl_seat* seat_; ///< of our own, for its events
    wl_keyboard* keyboard_ = nullptr;
    std::unique_ptr<xkb_keymap, void (*)(xkb_keymap*)> keymap_;
};

} // namespace vantro
