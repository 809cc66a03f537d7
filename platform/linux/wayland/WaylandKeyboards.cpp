#include "platform/linux/wayland/WaylandKeyboards.h"

#include "platform/linux/wayland/SharedMemory.h"
#include "platform/linux/wayland/WaylandConnection.h"
#include "platform/linux/wayland/WaylandKeymap.h"

#include <fake-input-client-protocol.h>
#include <linux/input-event-codes.h>
#include <virtual-keyboard-unstable-v1-client-protocol.h>
#include <wayland-client.h>
#include <xkbcommon/xkbcommon.h>

#include <chrono>
#include <cstdlib>

namespace vantro {

namespace {

constexpr std::uint32_t virtualKeyboardVersion = 1;
constexpr std::uint32_t fakeInputVersion = 4; ///< the first with keys

/// With the terminating zero, as the protocol wants it; empty if the keyboard data are not installed.
QByteArray usKeymap()
{
    xkb_context* const context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
    xkb_rule_names names{};
    names.layout = "us";
    xkb_keymap* const keymap =
        context != nullptr ? xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS) : nullptr;
    QByteArray result;
    if (keymap != nullptr) {
        char* const text = xkb_keymap_get_as_string(keymap, XKB_KEYMAP_FORMAT_TEXT_V1);
        result = text;
        result.append('\0');
        std::free(text);
    }
    xkb_keymap_unref(keymap);
    xkb_context_unref(context);
    return result;
}

/// A keyboard of our own, which has a US layout whatever the user's is. Programs see the modifiers of the keyboard that
/// was used last, so what the user holds down does not matter.
class VirtualKeyboard final : public WaylandKeyboard
{
public:
    explicit VirtualKeyboard(WaylandConnection& connection)
        : manager_(static_cast<zwp_virtual_keyboard_manager_v1*>(
              connection.bind(zwp_virtual_keyboard_manager_v1_interface, virtualKeyboardVersion)))
        , keyboard_(zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(manager_, connection.seat()))
    {
        // At once: programs must have noticed a keyboard before they listen to it.
        isReady_ = giveKeymap() && connection.roundTrip();
    }
    ~VirtualKeyboard() override
    {
        zwp_virtual_keyboard_v1_destroy(keyboard_);
        zwp_virtual_keyboard_manager_v1_destroy(manager_);
    }
    VirtualKeyboard(const VirtualKeyboard&) = delete;
    VirtualKeyboard& operator=(const VirtualKeyboard&) = delete;

    [[nodiscard]] bool isReady() const { return isReady_; }
    [[nodiscard]] const char* way() const override { return "virtual-keyboard"; }
    [[nodiscard]] std::uint32_t keyOfV() const override { return KEY_V; }

    void press(std::uint32_t key, bool isDown, std::uint32_t modifiers) override
    {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
        zwp_virtual_keyboard_v1_key(keyboard_, static_cast<std::uint32_t>(time), key,
                                    isDown ? WL_KEYBOARD_KEY_STATE_PRESSED : WL_KEYBOARD_KEY_STATE_RELEASED);
        zwp_virtual_keyboard_v1_modifiers(keyboard_, modifiers, 0, 0, 0);
    }

private:
    [[nodiscard]] bool giveKeymap()
    {
        const QByteArray keymap = usKeymap();
        const SharedMemory memory(keymap);
        if (keymap.isEmpty() || memory.descriptor() < 0)
            return false;
        zwp_virtual_keyboard_v1_keymap(keyboard_, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, memory.descriptor(),
                                       static_cast<std::uint32_t>(keymap.size()));
        return true;
    }

    zwp_virtual_keyboard_manager_v1* manager_;
    zwp_virtual_keyboard_v1* keyboard_;
    bool isReady_ = false;
};

/// KDE's way: the user's own keyboard, so that his layout counts, and what he holds down as well.
class FakeInput final : public WaylandKeyboard
{
public:
    FakeInput(WaylandConnection& connection, const WaylandKeymap& keymap)
        : input_(static_cast<org_kde_kwin_fake_input*>(
              connection.bind(org_kde_kwin_fake_input_interface, fakeInputVersion)))
        , keymap_(keymap)
    {
        org_kde_kwin_fake_input_authenticate(input_, "vantro", "pastes what you have dictated");
        connection.roundTrip();
    }
    ~FakeInput() override { org_kde_kwin_fake_input_destroy(input_); }
    FakeInput(const FakeInput&) = delete;
    FakeInput& operator=(const FakeInput&) = delete;

    [[nodiscard]] const char* way() const override { return "fake-input"; }
    /// Programs take the key in V's place for a V where the layout has none.
    [[nodiscard]] std::uint32_t keyOfV() const override { return keymap_.keyWith(XKB_KEY_v).value_or(KEY_V); }

    void freeModifiers() override
    {
        for (const std::uint32_t key : {KEY_LEFTCTRL, KEY_RIGHTCTRL, KEY_LEFTSHIFT, KEY_RIGHTSHIFT, KEY_LEFTALT,
                                        KEY_RIGHTALT, KEY_LEFTMETA, KEY_RIGHTMETA})
            press(key, false, 0);
    }
    void press(std::uint32_t key, bool isDown, std::uint32_t /*modifiers*/) override
    {
        org_kde_kwin_fake_input_keyboard_key(input_, key, isDown ? 1 : 0);
    }

private:
    org_kde_kwin_fake_input* input_;
    const WaylandKeymap& keymap_;
};

} // namespace

std::unique_ptr<WaylandKeyboard> WaylandKeyboard::of(WaylandConnection& connection, const WaylandKeymap& keymap)
{
    if (connection.offers(zwp_virtual_keyboard_manager_v1_interface.name) && connection.seat() != nullptr) {
        auto keyboard = std::make_unique<VirtualKeyboard>(connection);
        return keyboard->isReady() ? std::move(keyboard) : nullptr;
    }
    if (connection.offers(org_kde_kwin_fake_input_interface.name))
        return std::make_unique<FakeInput>(connection, keymap);
    return nullptr;
}

} // namespace vantro
