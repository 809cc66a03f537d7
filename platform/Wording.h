#pragma once

#include <QCoreApplication>
#include <QString>

namespace vantro::wording {

/// The few texts that name a facility of the running system.
inline QString pasteShortcut()
{
    return QStringLiteral("Ctrl+V");
}

inline QString noMicrophone()
{
    return QCoreApplication::translate(
        "wording", "No microphone is connected. Plug one in or choose another under Settings, Microphone.");
}

inline QString noSoundServer()
{
    return QCoreApplication::translate("wording",
                                       "The sound server does not answer. Start PulseAudio or PipeWire "
                                       "(for example: systemctl --user start pipewire-pulse) and try again.");
}

/// Stands before the system's name in an error report, which is read by the makers: not translated.
inline QString systemVersionLabel()
{
    return QStringLiteral("Linux Version: ");
}

inline QString howToChooseShortcut()
{
    return QCoreApplication::translate("wording", "In a terminal: vantro --shortcut Ctrl+Alt+Space");
}

} // namespace vantro::wording
