#pragma once

#include <QString>
#include <QtCore/qnamespace.h>

#include <cstdint>
#include <optional>

namespace vantro {

/// Modifier mask of a stored shortcut, encoded the same on every system. Here, command is the Control key and control
/// is the Super key.
namespace Modifier {
inline constexpr std::uint32_t command = 0x0100;
inline constexpr std::uint32_t shift = 0x0200;
inline constexpr std::uint32_t option = 0x0800;
inline constexpr std::uint32_t control = 0x1000;
inline constexpr std::uint32_t all = command | shift | option | control;

std::uint32_t fromQt(Qt::KeyboardModifiers held);
} // namespace Modifier

/// A virtual key code, stored the same on every system (Space = 49, V = 9, A = 0). Keys without one (media keys and the
/// like) are stored as `keysymBase` plus their X keysym.
namespace KeyCode {
inline constexpr std::uint32_t keysymBase = 0x10000000;
inline constexpr std::uint32_t space = 49;
inline constexpr std::uint32_t escape = 53;

/// The unshifted X keysym of @p keyCode; nullopt for an unknown code.
std::optional<std::uint32_t> toKeysym(std::uint32_t keyCode);
/// The inverse of toKeysym().
std::uint32_t fromKeysym(std::uint32_t keysym);
/// Whether the key, alone or with Shift, types text or moves the text cursor.
bool isForTyping(std::uint32_t keyCode);
} // namespace KeyCode

/// "Ctrl+Alt+D", with this desktop's key names.
QString shortcutText(std::uint32_t keyCode, std::uint32_t modifiers);
/// "Ctrl+Alt+", the prefix of a shortcut; empty without modifiers.
QString modifierText(std::uint32_t modifiers);
struct ParsedShortcut
{
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;
};
/// Parses shortcutText()'s format in any case and order; nullopt if a part is unknown or the key is missing.
std::optional<ParsedShortcut> parseShortcut(const QString& text);

} // namespace vantro
