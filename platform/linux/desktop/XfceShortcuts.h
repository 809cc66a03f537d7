#pragma once

#include "platform/DesktopShortcuts.h"

#include <QStringList>

namespace vantro {

/// What Xfce's settings channel "xfce4-keyboard-shortcuts" binds. @p folders: the configuration folders, the user's
/// first; the first one that has the channel's file counts.
std::vector<DesktopShortcut> readXfceShortcuts(const QStringList& folders);

} // namespace vantro
