#include "platform/Wording.h"

#include <QCoreApplication>

namespace vantro {

QString wording::pasteShortcut()
{
    return QStringLiteral("Ctrl+V");
}

QString wording::fluidModel()
{
    return QStringLiteral("Fluid model on this computer's processor.");
}

QString wording::noMicrophone()
{
    return QCoreApplication::translate(
        "wording", "No microphone is connected. Plug one in or choose another under Settings, Microphone.");
}

QString wording::noSoundServer()
{
    return QCoreApplication::translate("wording",
                                       "The sound server does not answer. Start PulseAudio or PipeWire "
                                       "(for example: systemctl --user start pipewire-pulse) and try again.");
}

QString wording::systemVersionLabel()
{
    return QStringLiteral("Linux Version: ");
}

QString wording::keyIsStoredSecurely()
{
    return QCoreApplication::translate("wording", "Your API key is stored securely in the desktop's Secret Service");
}

QString wording::localProcessingNeeds()
{
    return QCoreApplication::translate("wording", "Local processing requires a language model that comes with the "
                                                  "system; this one has none");
}

QString wording::localProcessingIsOff()
{
    return QCoreApplication::translate("wording",
                                       "Please enable the system's language model in Settings to use local processing");
}

QString wording::howToChooseShortcut()
{
    return QCoreApplication::translate("wording", "In a terminal: vantro --shortcut Ctrl+Alt+Space");
}

} // namespace vantro
