#pragma once

#include "platform/KeyCode.h"

#include <QString>

#include <optional>

namespace vantro {

/// Parses "<Primary><Alt>t", the format of GNOME and Xfce; nullopt for "disabled", unknown keys and modifiers that our
/// shortcuts cannot have.
std::optional<ParsedShortcut> parseGtkAccelerator(const QString& text);

/// The same for KDE's format, "Meta+Ctrl+PgUp".
std::optional<ParsedShortcut> parseQtSequence(const QString& text);

} // namespace vantro
