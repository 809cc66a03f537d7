#pragma once

#include "base/UserDefaults.h"
#include "platform/KeyEventPoster.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace vantro {

/// Returns the paste keystroke of a window, by its window class: Ctrl+V for most programs, Ctrl+Shift+V for terminal
/// emulators, Shift+Insert for the traditional X terminals. The user can extend the table in the setting "pasteChords",
/// a JSON object that maps a class or instance name (in any case) to "Ctrl+V", "Ctrl+Shift+V" or "Shift+Insert".
KeyEventPoster::PasteChord pasteChordFor(const QStringList& windowClass, const UserDefaults& defaults);

/// The chord as the settings and the user know it: "Ctrl+Shift+V".
QString chordText(KeyEventPoster::PasteChord chord);
/// The same the other way round, in any case and with blanks.
[[nodiscard]] std::optional<KeyEventPoster::PasteChord> chordNamed(const QString& text);
[[nodiscard]] std::vector<KeyEventPoster::PasteChord> allPasteChords();

/// The user's own table, by class or instance name in lower case. Entries that cannot be read are logged and left out.
using PasteChordTable = QHash<QString, KeyEventPoster::PasteChord>;
[[nodiscard]] PasteChordTable ownPasteChords(const UserDefaults& defaults);
/// Entries that cannot be read stay.
void setOwnPasteChords(UserDefaults& defaults, const PasteChordTable& table);

} // namespace vantro
