#pragma once

#include "platform/DesktopShortcuts.h"

namespace vantro {

/// Shortcuts bound in GNOME's settings: windows, shell, media keys and custom commands. Empty if its schemas are not
/// installed.
std::vector<DesktopShortcut> readGnomeShortcuts();

} // namespace vantro
