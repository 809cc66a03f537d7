#include "platform/Wording.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <array>

namespace vantro {

QString wording::pasteShortcut()
{
    return QStringLiteral("Ctrl+V");
}

QString wording::fluidModel()
{
    return QCoreApplication::translate("wording", "Fluid model on this computer's processor.");
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
    return QCoreApplication::translate("wording", "Local processing requires a language model, which can be "
                                                  "downloaded under Settings, Models");
}

QString wording::localProcessingIsOff()
{
    return QCoreApplication::translate(
        "wording", "Please download a language model under Settings, Models to use local processing");
}

QString wording::howToChooseShortcut()
{
    return QCoreApplication::translate("wording", "In a terminal: vantro --shortcut Ctrl+Alt+Space");
}

QString wording::shownKeys(const QString& keys)
{
    constexpr std::array names{QT_TRANSLATE_NOOP("keys", "Ctrl"),      QT_TRANSLATE_NOOP("keys", "Shift"),
                               QT_TRANSLATE_NOOP("keys", "Alt"),       QT_TRANSLATE_NOOP("keys", "Super"),
                               QT_TRANSLATE_NOOP("keys", "Space"),     QT_TRANSLATE_NOOP("keys", "Return"),
                               QT_TRANSLATE_NOOP("keys", "Enter"),     QT_TRANSLATE_NOOP("keys", "Insert"),
                               QT_TRANSLATE_NOOP("keys", "Delete"),    QT_TRANSLATE_NOOP("keys", "Backspace"),
                               QT_TRANSLATE_NOOP("keys", "Home"),      QT_TRANSLATE_NOOP("keys", "End"),
                               QT_TRANSLATE_NOOP("keys", "PageUp"),    QT_TRANSLATE_NOOP("keys", "PageDown"),
                               QT_TRANSLATE_NOOP("keys", "Up"),        QT_TRANSLATE_NOOP("keys", "Down"),
                               QT_TRANSLATE_NOOP("keys", "Left"),      QT_TRANSLATE_NOOP("keys", "Right"),
                               QT_TRANSLATE_NOOP("keys", "Pause"),     QT_TRANSLATE_NOOP("keys", "Print"),
                               QT_TRANSLATE_NOOP("keys", "Caps Lock"), QT_TRANSLATE_NOOP("keys", "Menu")};
    QStringList parts = keys.split(QLatin1Char('+'));
    for (QString& part : parts) {
        const auto name = std::ranges::find_if(names, [&](const char* each) { return part == QLatin1String(each); });
        if (name != names.end())
            part = QCoreApplication::translate("keys", *name);
    }
    return parts.join(QLatin1Char('+'));
}

} // namespace vantro
