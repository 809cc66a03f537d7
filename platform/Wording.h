#pragma once

#include <QString>

/// Texts that mention facilities of the system, with one version per system.
namespace vantro::wording {

QString pasteShortcut();
/// The beginning of a Fluid model's description.
QString fluidModel();
QString noMicrophone();
QString noSoundServer();
/// Label of the system's version in an error report; not translated.
QString systemVersionLabel();
/// Shown below the field for an API key.
QString keyIsStoredSecurely();
/// Why local rewriting is unavailable.
QString localProcessingNeeds();
QString localProcessingIsOff();
QString howToChooseShortcut();
/// "Ctrl+Alt+D" as the user's keyboard is labelled in the session's language.
QString shownKeys(const QString& keys);

} // namespace vantro::wording
