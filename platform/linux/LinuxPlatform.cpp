#include "platform/linux/LinuxPlatform.h"

#include "platform/linux/canberra/CanberraSounds.h"
#include "platform/linux/cld2/Cld2LanguageRecognizer.h"
#include "platform/linux/desktop/LinuxDesktopShortcuts.h"
#include "platform/linux/proc/ProcSystemInfo.h"
#include "platform/linux/pulse/PulseAudioCards.h"
#include "platform/linux/pulse/PulseAudioEngine.h"
#include "platform/linux/pulse/PulseAudioHardware.h"
#include "platform/linux/pulse/PulseConnection.h"
#include "platform/linux/secretservice/SecretServiceStore.h"
#include "platform/linux/tray/LinuxTrayHost.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11HotKeyManager.h"
#include "platform/linux/x11/X11KeyEventPoster.h"
#include "platform/linux/x11/X11Pasteboard.h"
#include "platform/linux/x11/X11Permissions.h"
#include "platform/linux/x11/X11Workspace.h"
#include "platform/linux/xdg/PortalAppearance.h"
#include "platform/linux/xdg/XdgAutostart.h"

#include <QCoreApplication>
#include <QStandardPaths>

namespace vantro {

namespace {

struct Connections
{
    PulseConnection pulse;
    X11Connection x11;
};

} // namespace

Platform makeLinuxSound()
{
    auto pulse = std::make_shared<PulseConnection>();
    Platform platform;
    platform.connections = pulse;
    platform.audioHardware = std::make_unique<PulseAudioHardware>(*pulse);
    return platform;
}

Platform makeLinuxKeyboard()
{
    auto x11 = std::make_shared<X11Connection>();
    Platform platform;
    platform.connections = x11;
    platform.hotKeys = std::make_unique<X11HotKeyManager>(*x11);
    platform.desktopShortcuts = std::make_unique<LinuxDesktopShortcuts>();
    return platform;
}

Platform makeLinuxPlatform()
{
    auto connections = std::make_shared<Connections>();
    PulseConnection& pulse = connections->pulse;
    X11Connection& x11 = connections->x11;

    Platform platform = makeLinuxCommandPlatform();
    platform.connections = connections;
    platform.audioHardware = std::make_unique<PulseAudioHardware>(pulse);
    platform.audioCards = std::make_unique<PulseAudioCards>(pulse);
    platform.makeAudioEngine = [&pulse] {
        return std::make_unique<PulseAudioEngine>(pulse);
    };
    platform.appearance = std::make_unique<PortalAppearance>();
    platform.hotKeys = std::make_unique<X11HotKeyManager>(x11);
    platform.desktopShortcuts = std::make_unique<LinuxDesktopShortcuts>();
    platform.keyEvents = std::make_unique<X11KeyEventPoster>(x11);
    platform.loginItem =
        std::make_unique<XdgAutostart>(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                                       QCoreApplication::applicationFilePath());
    platform.pasteboard = std::make_unique<X11Pasteboard>();
    platform.permissions = std::make_unique<X11Permissions>(x11, [&pulse] { return pulse.serverAnswers(); });
    platform.systemInfo = std::make_unique<ProcSystemInfo>();
    platform.sounds = std::make_unique<CanberraSounds>();
    platform.tray = std::make_unique<LinuxTrayHost>(x11);
    platform.workspace = std::make_unique<X11Workspace>(x11);
    return platform;
}

Platform makeLinuxCommandPlatform()
{
    Platform platform;
    platform.languages = std::make_unique<Cld2LanguageRecognizer>();
    platform.secrets = std::make_unique<SecretServiceStore>(QStringLiteral("com.vantro.app"));
    return platform;
}

} // namespace vantro
