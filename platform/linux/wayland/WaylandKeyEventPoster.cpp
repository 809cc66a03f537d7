#include "platform/linux/wayland/WaylandKeyEventPoster.h"

#include "platform/linux/wayland/WaylandConnection.h"
#include "platform/linux/wayland/WaylandKeyboards.h"

#include <QCoreApplication>

#include <linux/input-event-codes.h>

#include <ranges>
#include <utility>
#include <vector>

namespace vantro {

namespace {

/// The bits of X's core modifiers, which every keymap begins with.
constexpr std::uint32_t shiftBit = 1;
constexpr std::uint32_t controlBit = 4;

struct ModifierKey
{
    std::uint32_t key;
    std::uint32_t bit;
};

struct Stroke
{
    std::vector<ModifierKey> modifiers; ///< in the order of pressing
    std::uint32_t key;
};

Stroke strokeFor(KeyEventPoster::PasteChord chord, const WaylandKeyboard& keyboard)
{
    constexpr ModifierKey control{KEY_LEFTCTRL, controlBit};
    constexpr ModifierKey shift{KEY_LEFTSHIFT, shiftBit};
    switch (chord) {
    case KeyEventPoster::PasteChord::ControlShiftV:
        return {{control, shift}, keyboard.keyOfV()};
    case KeyEventPoster::PasteChord::ShiftInsert:
        return {{shift}, KEY_INSERT};
    case KeyEventPoster::PasteChord::ControlV:
        break;
    }
    return {{control}, keyboard.keyOfV()};
}

QString tr(const char* text)
{
    return QCoreApplication::translate("WaylandKeyEventPoster", text);
}

} // namespace

WaylandKeyEventPoster::WaylandKeyEventPoster(WaylandConnection& connection, const WaylandKeymap& keymap, Hooks hooks)
    : connection_(connection)
    , hooks_(std::move(hooks))
    , keyboard_(WaylandKeyboard::of(connection, keymap))
{
}

WaylandKeyEventPoster::~WaylandKeyEventPoster() = default;

QString WaylandKeyEventPoster::way() const
{
    return keyboard_ != nullptr ? QString(QLatin1String(keyboard_->way())) : QString();
}

void WaylandKeyEventPoster::postPaste(PasteChord chord)
{
    if (keyboard_ == nullptr)
        throw KeyEventError(tr("This desktop lets no program press keys for you."));
    if (!connection_.isOpen())
        throw KeyEventError(WaylandConnection::unavailableReason());
    hooks_.aboutToPost();
    const Stroke stroke = strokeFor(chord, *keyboard_);
    std::uint32_t held = 0;
    keyboard_->freeModifiers();
    for (const ModifierKey& modifier : stroke.modifiers)
        keyboard_->press(modifier.key, true, held |= modifier.bit);
    keyboard_->press(stroke.key, true, held);
    keyboard_->press(stroke.key, false, held);
    for (const ModifierKey& modifier : std::views::reverse(stroke.modifiers))
        keyboard_->press(modifier.key, false, held &= ~modifier.bit);
    // Sent in one: all of it or nothing.
    if (!connection_.roundTrip())
        throw KeyEventError(tr("The desktop did not take the paste keystroke."));
}

} // namespace vantro
