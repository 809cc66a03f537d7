#pragma once

#include <QCoreApplication>
#include <QString>

namespace vantro::wording {

/// The few texts that name a facility of the running system.
inline QString pasteShortcut()
{
    return QStringLiteral("Ctrl+V");
}

/// What a catalogue entry of the fluid engine begins with. Like the other entries' descriptions it is not translated.
inline QString fluidModel()
{
    return QStringLiteral("Fluid model on this computer's processor.");
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

/// Below the field for an API key.
inline QString keyIsStoredSecurely()
{
    return QCoreApplication::translate("wording", "Your API key is stored securely in the desktop's Secret Service");
}

inline QString noSecretStore()
{
    return QCoreApplication::translate("wording",
                                       "No Secret Service answers, so keys cannot be kept. Install and start GNOME "
                                       "Keyring or KWallet, or switch on the Secret Service of KeePassXC.");
}

inline QString noSessionBusForSecrets()
{
    return QCoreApplication::translate("wording", "There is no session bus to ask the Secret Service over. Log in to a "
                                                  "desktop session, or start one with dbus-run-session.");
}

inline QString secretStoreIsLocked()
{
    return QCoreApplication::translate("wording",
                                       "The keyring is locked. Unlock it (Passwords and Keys, KWalletManager or "
                                       "KeePassXC) and try again.");
}

inline QString secretStoreFailed(const QString& reason)
{
    return QCoreApplication::translate("wording", "The Secret Service could not do it: %1").arg(reason);
}

/// Why nothing is rewritten on this machine itself.
inline QString localProcessingNeeds()
{
    return QCoreApplication::translate("wording", "Local processing requires a language model that comes with the "
                                                  "system; this one has none");
}

inline QString localProcessingIsOff()
{
    return QCoreApplication::translate("wording",
                                       "Please enable the system's language model in Settings to use local processing");
}

inline QString howToChooseShortcut()
{
    return QCoreApplication::translate("wording", "In a terminal: vantro --shortcut Ctrl+Alt+Space");
}

} // namespace vantro::wording
