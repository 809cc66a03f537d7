#pragma once

#include "platform/DesktopShortcuts.h"

#include <QString>

namespace vantro {

/// Shortcuts bound in KDE's global shortcuts file. @p path: "kglobalshortcutsrc" in the configuration folder; empty if
/// it cannot be read.
std::vector<DesktopShortcut> readKdeShortcuts(const QString& path);

} // namespace vantro
