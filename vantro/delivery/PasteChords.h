#pragma once

#include "base/UserDefaults.h"
#include "platform/KeyEventPoster.h"

#include <QStringList>

namespace vantro {

/// Which chord makes a program paste, by its window's class: most know Ctrl+V, terminal emulators Ctrl+Shift+V, and the
/// plain X terminals only Shift+Insert. The user adds to the table under the settings key "pasteChords", a JSON object
/// of class or instance name (in any case) to "Ctrl+V", "Ctrl+Shift+V" or "Shift+Insert".
KeyEventPoster::PasteChord pasteChordFor(const QStringList& windowClass, const UserDefaults& defaults);

} // namespace vantro
