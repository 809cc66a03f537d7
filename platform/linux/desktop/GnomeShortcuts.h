#pragma once

#include "platform/DesktopShortcuts.h"

namespace vantro {

/// What GNOME's settings bind: windows, shell, media keys and the user's own commands. Empty where its schemas are not
/// installed.
std::vector<DesktopShortcut> readGnomeShortcuts();

} // namespace vantro
