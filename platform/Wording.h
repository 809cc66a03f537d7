#pragma once

#include <QString>

/// The few texts that name a facility of the running system, worded for each system on its own.
namespace vantro::wording {

QString pasteShortcut();
/// What a catalogue entry of the fluid engine begins with. Like the other entries' descriptions it is not translated.
QString fluidModel();
QString noMicrophone();
QString noSoundServer();
/// Stands before the system's name in an error report, which is read by the makers: not translated.
QString systemVersionLabel();
/// Below the field for an API key.
QString keyIsStoredSecurely();
/// Why nothing is rewritten on this machine itself.
QString localProcessingNeeds();
QString localProcessingIsOff();
QString howToChooseShortcut();

} // namespace vantro::wording
