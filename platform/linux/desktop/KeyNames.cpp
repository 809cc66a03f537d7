#include "platform/linux/desktop/KeyNames.h"

#include <QKeySequence>

#include <X11/Xlib.h>
#include <X11/keysym.h>

#include <algorithm>
#include <array>

namespace vantro {

namespace {

struct GtkModifier
{
    const char* name;
    std::uint32_t mask;
};

constexpr std::array gtkModifiers{
    GtkModifier{"primary", Modifier::command},
    GtkModifier{"control", Modifier::command},
    GtkModifier{"ctrl", Modifier::command},
    GtkModifier{"ctl", Modifier::command},
    GtkModifier{"alt", Modifier::option},
    GtkModifier{"mod1", Modifier::option},
    GtkModifier{"shift", Modifier::shift},
    GtkModifier{"shft", Modifier::shift},
    GtkModifier{"super", Modifier::control},
    GtkModifier{"mod4", Modifier::control},
    GtkModifier{"release", 0},
};

struct QtKey
{
    int key;
    std::uint32_t keysym;
};

// Letters, digits and symbols are Latin-1 in both encodings, and function keys are consecutive in both.
constexpr std::array qtKeys{
    QtKey{Qt::Key_Escape, XK_Escape},
    QtKey{Qt::Key_Tab, XK_Tab},
    QtKey{Qt::Key_Backspace, XK_BackSpace},
    QtKey{Qt::Key_Return, XK_Return},
    QtKey{Qt::Key_Enter, XK_KP_Enter},
    QtKey{Qt::Key_Insert, XK_Insert},
    QtKey{Qt::Key_Delete, XK_Delete},
    QtKey{Qt::Key_Pause, XK_Pause},
    QtKey{Qt::Key_Print, XK_Print},
    QtKey{Qt::Key_Home, XK_Home},
    QtKey{Qt::Key_End, XK_End},
    QtKey{Qt::Key_Left, XK_Left},
    QtKey{Qt::Key_Up, XK_Up},
    QtKey{Qt::Key_Right, XK_Right},
    QtKey{Qt::Key_Down, XK_Down},
    QtKey{Qt::Key_PageUp, XK_Page_Up},
    QtKey{Qt::Key_PageDown, XK_Page_Down},
    QtKey{Qt::Key_ScrollLock, XK_Scroll_Lock},
    QtKey{Qt::Key_Menu, XK_Menu},
    QtKey{Qt::Key_VolumeDown, 0x1008ff11},
    QtKey{Qt::Key_VolumeMute, 0x1008ff12},
    QtKey{Qt::Key_VolumeUp, 0x1008ff13},
    QtKey{Qt::Key_MediaPlay, 0x1008ff14},
    QtKey{Qt::Key_MediaStop, 0x1008ff15},
    QtKey{Qt::Key_MediaPrevious, 0x1008ff16},
    QtKey{Qt::Key_MediaNext, 0x1008ff17},
    QtKey{Qt::Key_HomePage, 0x1008ff18},
    QtKey{Qt::Key_LaunchMail, 0x1008ff19},
    QtKey{Qt::Key_Search, 0x1008ff1b},
    QtKey{Qt::Key_MediaRecord, 0x1008ff1c},
    QtKey{Qt::Key_Calculator, 0x1008ff1d},
    QtKey{Qt::Key_MediaPause, 0x1008ff31},
    QtKey{Qt::Key_MicMute, 0x1008ffb2},
};

std::optional<std::uint32_t> keysymOf(Qt::Key key)
{
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return key - Qt::Key_A + XK_a;
    if (key >= Qt::Key_Space && key <= Qt::Key_ydiaeresis)
        return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return key - Qt::Key_F1 + XK_F1;
    const auto* const known = std::ranges::find(qtKeys, int{key}, &QtKey::key);
    return known != qtKeys.end() ? std::optional(known->keysym) : std::nullopt;
}

std::optional<std::uint32_t> keysymNamed(const QString& name)
{
    // The key above Tab depends on the layout; on most it is this one.
    if (name.compare(QLatin1String("Above_Tab"), Qt::CaseInsensitive) == 0)
        return XK_grave;
    const QByteArray latin1 = name.toLatin1();
    const KeySym keysym = XStringToKeysym(latin1.constData());
    if (keysym == NoSymbol)
        return std::nullopt;
    const bool isCapital = keysym >= XK_A && keysym <= XK_Z;
    return static_cast<std::uint32_t>(isCapital ? keysym - XK_A + XK_a : keysym);
}

} // namespace

std::optional<ParsedShortcut> parseGtkAccelerator(const QString& text)
{
    ParsedShortcut result;
    QString rest = text.trimmed();
    while (rest.startsWith(QLatin1Char('<'))) {
        const auto end = rest.indexOf(QLatin1Char('>'));
        const QString name = rest.mid(1, end - 1).toLower();
        const auto* const modifier =
            std::ranges::find_if(gtkModifiers, [&](const auto& m) { return name == QLatin1String(m.name); });
        if (end < 0 || modifier == gtkModifiers.end())
            return std::nullopt;
        result.modifiers |= modifier->mask;
        rest = rest.mid(end + 1);
    }
    const auto keysym = keysymNamed(rest);
    if (!keysym)
        return std::nullopt;
    result.keyCode = KeyCode::fromKeysym(*keysym);
    return result;
}

std::optional<ParsedShortcut> parseQtSequence(const QString& text)
{
    const QKeySequence sequence(text.trimmed(), QKeySequence::PortableText);
    if (sequence.count() != 1)
        return std::nullopt;
    const auto keysym = keysymOf(sequence[0].key());
    if (!keysym)
        return std::nullopt;
    return ParsedShortcut{.keyCode = KeyCode::fromKeysym(*keysym),
                          .modifiers = Modifier::fromQt(sequence[0].keyboardModifiers())};
}

} // namespace vantro
