#pragma once

#include "platform/KeyCode.h"

#include <QString>

#include <optional>

namespace vantro {

/// "<Primary><Alt>t", as GNOME and Xfce write a key combination; nothing for "disabled", for keys that are not known
/// and for modifiers that no shortcut of ours can have.
std::optional<ParsedShortcut> parseGtkAccelerator(const QString& text);

/// "Meta+Ctrl+PgUp", as KDE writes it; nothing likewise.
std::optional<ParsedShortcut> parseQtSequence(const QString& text);

} // namespace vantro
