#pragma once

#include <QString>
#include <QtCore/qnamespace.h>

#include <cstdint>
#include <optional>

namespace vantro {

/// Modifier mask of a stored shortcut, in the encoding that shortcuts are stored in on every system. The command
/// modifier is Control on this desktop, and the control modifier is Super.
namespace Modifier {
inline constexpr std::uint32_t command = 0x0100;
inline constexpr std::uint32_t shift = 0x0200;
inline constexpr std::uint32_t option = 0x0800;
inline constexpr std::uint32_t control = 0x1000;
inline constexpr std::uint32_t all = command | shift | option | control;

std::uint32_t fromQt(Qt::KeyboardModifiers held);
} // namespace Modifier

/// A virtual key code: the code that shortcuts are stored under on every system (Space = 49, V = 9, A = 0). Keys that
/// have none there (media keys and the like) are stored as `keysymBase` plus their X keysym.
namespace KeyCode {
inline constexpr std::uint32_t keysymBase = 0x10000000;
inline constexpr std::uint32_t space = 49;
inline constexpr std::uint32_t escape = 53;

/// The X keysym that @p keyCode stands for on an unshifted key; nothing for codes that no key has.
std::optional<std::uint32_t> toKeysym(std::uint32_t keyCode);
/// The inverse, for an unshifted keysym.
std::uint32_t fromKeysym(std::uint32_t keysym);
/// Whether the key writes or moves the text cursor when it is pressed alone, or with Shift.
bool isForTyping(std::uint32_t keyCode);
} // namespace KeyCode

/// "Ctrl+Alt+D" as this desktop writes it.
QString shortcutText(std::uint32_t keyCode, std::uint32_t modifiers);
/// "Ctrl+Alt+", what a shortcut begins with; empty without modifiers.
QString modifierText(std::uint32_t modifiers);
struct ParsedShortcut
{
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;
};
/// Reads what shortcutText() writes, in any case and order; nothing when a part is unknown or the key is missing.
std::optional<ParsedShortcut> parseShortcut(const QString& text);

} // namespace vantro
