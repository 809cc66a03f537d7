#include "platform/linux/wayland/WaylandHotKeyManager.h"

#include "platform/KeyCode.h"
#include "platform/linux/wayland/WaylandKeymap.h"

#include <QStringList>

#include <xkbcommon/xkbcommon.h>

#include <array>
#include <utility>

namespace vantro {

namespace {

/// Qt numbers keys as X does.
constexpr std::uint32_t firstNativeCode = 8;
const QString whenPressed = QStringLiteral("vantro toggle");
const QString whileHeld = QStringLiteral("vantro start");
const QString whenReleased = QStringLiteral("vantro stop");

QString keyName(std::uint32_t keyCode)
{
    std::array<char, 64> name{};
    xkb_keysym_get_name(KeyCode::toKeysym(keyCode).value_or(XKB_KEY_VoidSymbol), name.data(), name.size());
    return QString::fromLatin1(name.data());
}

/// What a compositor calls the modifiers, and how it joins them.
struct ModifierNames
{
    const char* command;
    const char* control;
    const char* option;
    const char* shift;
    const char* joint;
};

QString modifierText(std::uint32_t modifiers, const ModifierNames& names)
{
    QStringList held;
    const std::array<std::pair<std::uint32_t, const char*>, 4> all{{{Modifier::command, names.command},
                                                                    {Modifier::control, names.control},
                                                                    {Modifier::option, names.option},
                                                                    {Modifier::shift, names.shift}}};
    for (const auto& [mask, name] : all) {
        if ((modifiers & mask) != 0)
            held << QLatin1String(name);
    }
    return held.join(QLatin1String(names.joint));
}

/// As the portal writes keys: "CTRL+ALT+d".
QString forPortal(std::uint32_t keyCode, std::uint32_t modifiers)
{
    const QString held = modifierText(modifiers, {"CTRL", "LOGO", "ALT", "SHIFT", "+"});
    return held.isEmpty() ? keyName(keyCode) : held + QLatin1Char('+') + keyName(keyCode);
}

bool isForTyping(std::uint32_t keyCode, std::uint32_t modifiers)
{
    return (modifiers & ~Modifier::shift) == 0 && KeyCode::isForTyping(keyCode);
}

QString forSway(std::uint32_t keyCode, std::uint32_t modifiers, bool isHeld)
{
    const QString held = modifierText(modifiers, {"Ctrl", "Mod4", "Mod1", "Shift", "+"});
    const QString keys = held.isEmpty() ? keyName(keyCode) : held + QLatin1Char('+') + keyName(keyCode);
    if (!isHeld)
        return QStringLiteral("bindsym %1 exec %2").arg(keys, whenPressed);
    return QStringLiteral("bindsym --no-repeat %1 exec %2\nbindsym --release %1 exec %3")
        .arg(keys, whileHeld, whenReleased);
}

QString forHyprland(std::uint32_t keyCode, std::uint32_t modifiers, bool isHeld)
{
    const QString keys =
        modifierText(modifiers, {"CTRL", "SUPER", "ALT", "SHIFT", " "}) + QStringLiteral(", ") + keyName(keyCode);
    if (!isHeld)
        return QStringLiteral("bind = %1, exec, %2").arg(keys, whenPressed);
    return QStringLiteral("bind = %1, exec, %2\nbindr = %1, exec, %3").arg(keys, whileHeld, whenReleased);
}

QString forRiver(std::uint32_t keyCode, std::uint32_t modifiers, bool isHeld)
{
    const QString held = modifierText(modifiers, {"Control", "Super", "Alt", "Shift", "+"});
    const QString keys = (held.isEmpty() ? QStringLiteral("None") : held) + QLatin1Char(' ') + keyName(keyCode);
    if (!isHeld)
        return QStringLiteral("riverctl map normal %1 spawn '%2'").arg(keys, whenPressed);
    return QStringLiteral("riverctl map normal %1 spawn '%2'\nriverctl map -release normal %1 spawn '%3'")
        .arg(keys, whileHeld, whenReleased);
}

struct ConfiguredDesktop
{
    const char* name; ///< as in XDG_CURRENT_DESKTOP
    QString (*lines)(std::uint32_t keyCode, std::uint32_t modifiers, bool isHeld);
};

constexpr std::array configuredDesktops{ConfiguredDesktop{"sway", forSway}, ConfiguredDesktop{"hyprland", forHyprland},
                                        ConfiguredDesktop{"river", forRiver}};

} // namespace

WaylandHotKeyManager::WaylandHotKeyManager(const WaylandKeymap& keymap) : keymap_(keymap)
{
    askSoon_.setSingleShot(true);
    connect(&askSoon_, &QTimer::timeout, this, &WaylandHotKeyManager::askPortal);
    connect(&portal_, &ShortcutPortal::pressed, this, &WaylandHotKeyManager::hotKeyPressed);
    connect(&portal_, &ShortcutPortal::released, this, &WaylandHotKeyManager::hotKeyReleased);
    connect(&portal_, &ShortcutPortal::released, &askSoon_, qOverload<>(&QTimer::start));
}

void WaylandHotKeyManager::registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers)
{
    if (isForTyping(keyCode, modifiers))
        return;
    hotKeys_.push_back({id, keyCode, modifiers});
    askSoon_.start();
}

void WaylandHotKeyManager::unregisterHotKey(std::uint32_t id)
{
    if (std::erase_if(hotKeys_, [id](const HotKey& hotKey) { return hotKey.id == id; }) > 0)
        askSoon_.start();
}

/// Not while one is held: asking anew lets go of it. Keys that are wanted only that long are not asked for.
void WaylandHotKeyManager::askPortal()
{
    if (portal_.isAnyDown())
        return;
    std::vector<std::uint32_t> wanted;
    std::vector<ShortcutPortal::Shortcut> shortcuts;
    for (const HotKey& hotKey : hotKeys_) {
        wanted.push_back(hotKey.id);
        shortcuts.push_back({hotKey.id, forPortal(hotKey.keyCode, hotKey.modifiers), tr("Dictate")});
    }
    if (std::exchange(asked_, wanted) != wanted)
        portal_.bind(std::move(shortcuts));
}

QString WaylandHotKeyManager::way() const
{
    return portal_.isBound() ? QStringLiteral("GlobalShortcuts portal") : QStringLiteral("binding to vantro toggle");
}

std::optional<std::uint32_t> WaylandHotKeyManager::keyCodeOf(std::uint32_t nativeScanCode) const
{
    return nativeScanCode >= firstNativeCode ? keymap_.keyCodeOf(nativeScanCode - firstNativeCode) : std::nullopt;
}

std::optional<QString> WaylandHotKeyManager::howToBind(std::uint32_t keyCode, std::uint32_t modifiers,
                                                       bool isHeld) const
{
    if (portal_.isBound())
        return std::nullopt;
    const QString desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    for (const ConfiguredDesktop& configured : configuredDesktops) {
        if (desktop.contains(QLatin1String(configured.name), Qt::CaseInsensitive))
            return tr("Your desktop gives the shortcut to a command. Add to its configuration:") + QLatin1Char('\n') +
                   configured.lines(keyCode, modifiers, isHeld);
    }
    return tr("In your desktop's keyboard settings, bind %1 to the command: %2")
        .arg(shortcutText(keyCode, modifiers), whenPressed);
}

} // namespace vantro
