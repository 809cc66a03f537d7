#include "platform/linux/wayland/WaylandKeymap.h"

#include "platform/KeyCode.h"
#include "platform/linux/wayland/SharedMemory.h"
#include "platform/linux/wayland/WaylandConnection.h"

#include <unistd.h>
#include <wayland-client.h>
#include <xkbcommon/xkbcommon.h>

namespace vantro {

namespace {

constexpr std::uint32_t firstXkbKey = 8;

bool isModifier(xkb_keysym_t keysym)
{
    return keysym >= XKB_KEY_Shift_L && keysym <= XKB_KEY_Hyper_R;
}

} // namespace

struct WaylandKeymap::Callbacks
{
    /// A seat may get a keyboard later, and to ask it for one before is an error.
    static void capabilities(void* data, wl_seat* seat, std::uint32_t capabilities)
    {
        auto& self = *static_cast<WaylandKeymap*>(data);
        if (self.keyboard_ != nullptr || (capabilities & WL_SEAT_CAPABILITY_KEYBOARD) == 0)
            return;
        self.keyboard_ = wl_seat_get_keyboard(seat);
        wl_keyboard_add_listener(self.keyboard_, &listener, data);
    }
    static void keymap(void* data, wl_keyboard* /*keyboard*/, std::uint32_t format, int descriptor,
                       std::uint32_t sizeBytes)
    {
        if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1)
            static_cast<WaylandKeymap*>(data)->adopt(descriptor, sizeBytes);
        close(descriptor);
    }

    /// The rest is for programs with windows.
    static constexpr wl_keyboard_listener listener{
        keymap,
        [](void*, wl_keyboard*, std::uint32_t, wl_surface*, wl_array*) {},
        [](void*, wl_keyboard*, std::uint32_t, wl_surface*) {},
        [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
        [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
        [](void*, wl_keyboard*, std::int32_t, std::int32_t) {
        }};
    static constexpr wl_seat_listener seatListener{capabilities, [](void*, wl_seat*, const char*) {
                                                   }};
};

WaylandKeymap::WaylandKeymap(const WaylandConnection& connection)
    : seat_(static_cast<wl_seat*>(connection.bind(wl_seat_interface, 1)))
    , keymap_(nullptr, xkb_keymap_unref)
{
    if (seat_ != nullptr)
        wl_seat_add_listener(seat_, &Callbacks::seatListener, this);
}

WaylandKeymap::~WaylandKeymap()
{
    if (keyboard_ != nullptr)
        wl_keyboard_destroy(keyboard_);
    if (seat_ != nullptr)
        wl_seat_destroy(seat_);
}

void WaylandKeymap::adopt(int descriptor, std::uint32_t sizeBytes)
{
    const QByteArray text = readSharedMemory(descriptor, sizeBytes);
    xkb_context* const context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
    xkb_keymap* const keymap =
        xkb_keymap_new_from_string(context, text.constData(), XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS);
    xkb_context_unref(context);
    if (keymap != nullptr)
        keymap_.reset(keymap);
}

std::optional<std::uint32_t> WaylandKeymap::keysym(std::uint32_t key, std::uint32_t layout) const
{
    const xkb_keysym_t* symbols = nullptr;
    if (xkb_keymap_key_get_syms_by_level(keymap_.get(), key + firstXkbKey, layout, 0, &symbols) != 1)
        return std::nullopt;
    return symbols[0];
}

std::optional<std::uint32_t> WaylandKeymap::keyCodeOf(std::uint32_t key) const
{
    if (keymap_ == nullptr)
        return std::nullopt;
    std::optional<std::uint32_t> first;
    const auto layouts = xkb_keymap_num_layouts_for_key(keymap_.get(), key + firstXkbKey);
    for (xkb_layout_index_t layout = 0; layout < layouts; ++layout) {
        const auto symbol = keysym(key, layout);
        if (!symbol || isModifier(*symbol))
            continue;
        const std::uint32_t code = KeyCode::fromKeysym(*symbol);
        if (code < KeyCode::keysymBase)
            return code;
        first = first.value_or(code);
    }
    return first;
}

std::optional<std::uint32_t> WaylandKeymap::keyWith(std::uint32_t wanted) const
{
    if (keymap_ == nullptr)
        return std::nullopt;
    for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts(keymap_.get()); ++layout) {
        for (auto key = xkb_keymap_min_keycode(keymap_.get()); key <= xkb_keymap_max_keycode(keymap_.get()); ++key) {
            if (key >= firstXkbKey && keysym(key - firstXkbKey, layout) == wanted)
                return key - firstXkbKey;
        }
    }
    return std::nullopt;
}

} // namespace vantro
