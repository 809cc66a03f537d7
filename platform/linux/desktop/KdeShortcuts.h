#pragma once

#include "platform/DesktopShortcuts.h"

#include <QString>

namespace vantro {

/// What KDE's global shortcuts file binds. @p path: "kglobalshortcutsrc" in the configuration folder; empty when it
/// cannot be read.
std::vector<DesktopShortcut> readKdeShortcuts(const QString& path);

} // namespace vantro
