#pragma once

#include "platform/DesktopShortcuts.h"

#include <QStringList>

namespace vantro {

/// Shortcuts bound in Xfce's settings channel "xfce4-keyboard-shortcuts", read from the first of the configuration
/// @p folders that has it.
std::vector<DesktopShortcut> readXfceShortcuts(const QStringList& folders);

} // namespace vantro
