#pragma once

#include "platform/WindowID.h"

#include <QString>

class QWindow;

/// The program's own windows, by the IDs that Qt gives them. Main thread only.
namespace vantro::ownwindows {

/// Null if @p window is not one of this program's.
[[nodiscard]] QWindow* find(WindowID window);
/// Whether a pasted text would go into a field of @p window.
[[nodiscard]] bool takesText(WindowID window);
/// Opens @p url in the desktop's default program. Returns false if none could be started.
bool openUrl(const QString& url);

} // namespace vantro::ownwindows
