#pragma once

#include "base/UserDefaults.h"
#include "platform/KeyEventPoster.h"

#include <QString>
#include <QStringList>

namespace vantro {

/// Returns the paste keystroke of a window, by its window class: Ctrl+V for most programs, Ctrl+Shift+V for terminal
/// emulators, Shift+Insert for the traditional X terminals. The user can extend the table in the setting "pasteChords",
/// a JSON object that maps a class or instance name (in any case) to "Ctrl+V", "Ctrl+Shift+V" or "Shift+Insert".
KeyEventPoster::PasteChord pasteChordFor(const QStringList& windowClass, const UserDefaults& defaults);

/// The chord as the settings and the user know it: "Ctrl+Shift+V".
QString chordText(KeyEventPoster::PasteChord chord);

} // namespace vantro
