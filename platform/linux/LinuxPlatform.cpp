#include "platform/Platform.h"
#include "platform/linux/canberra/CanberraSounds.h"
#include "platform/linux/cld2/Cld2LanguageRecognizer.h"
#include "platform/linux/desktop/LinuxDesktopShortcuts.h"
#include "platform/linux/proc/ProcSystemInfo.h"
#include "platform/linux/pulse/PulseAudioCards.h"
#include "platform/linux/pulse/PulseAudioEngine.h"
#include "platform/linux/pulse/PulseAudioHardware.h"
#include "platform/linux/pulse/PulseConnection.h"
#include "platform/linux/secretservice/SecretServiceStore.h"
#include "platform/linux/session/LinuxSessionState.h"
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

#include <optional>

namespace vantro {

namespace {

/// Created on demand.
struct Connections
{
    std::optional<PulseConnection> pulse;
    std::optional<X11Connection> x11;
};

void addMicrophones(Platform& platform, Connections& connections)
{
    platform.audioHardware = std::make_unique<PulseAudioHardware>(connections.pulse.emplace());
}

void addShortcuts(Platform& platform, Connections& connections)
{
    platform.hotKeys = std::make_unique<X11HotKeyManager>(connections.x11.emplace());
    platform.desktopShortcuts = std::make_unique<LinuxDesktopShortcuts>();
}

void addServices(Platform& platform)
{
    platform.languages = std::make_unique<Cld2LanguageRecognizer>();
    platform.secrets = std::make_unique<SecretServiceStore>(QStringLiteral("com.vantro.app"));
    platform.systemInfo = std::make_unique<ProcSystemInfo>();
}

/// Used by the desktop program only.
void addDesktop(Platform& platform, PulseConnection& pulse, X11Connection& x11)
{
    platform.audioCards = std::make_unique<PulseAudioCards>(pulse);
    platform.makeAudioEngine = [&pulse] {
        return std::make_unique<PulseAudioEngine>(pulse);
    };
    platform.appearance = std::make_unique<PortalAppearance>();
    platform.keyEvents = std::make_unique<X11KeyEventPoster>(x11);
    platform.loginItem =
        std::make_unique<XdgAutostart>(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                                       QCoreApplication::applicationFilePath());
    platform.pasteboard = std::make_unique<X11Pasteboard>();
    platform.permissions = std::make_unique<X11Permissions>(x11, [&pulse] { return pulse.serverAnswers(); });
    platform.session = std::make_unique<LinuxSessionState>();
    platform.sounds = std::make_unique<CanberraSounds>();
    platform.tray = std::make_unique<LinuxTrayHost>(x11);
    platform.workspace = std::make_unique<X11Workspace>(x11);
}

} // namespace

Platform makePlatform(PlatformPart part)
{
    const auto connections = std::make_shared<Connections>();
    const bool everything = part == PlatformPart::everything;
    Platform platform;
    platform.connections = connections;
    if (everything || part == PlatformPart::microphones)
        addMicrophones(platform, *connections);
    if (everything || part == PlatformPart::shortcuts)
        addShortcuts(platform, *connections);
    if (everything || part == PlatformPart::services)
        addServices(platform);
    if (everything)
        addDesktop(platform, *connections->pulse, *connections->x11);
    return platform;
}

} // namespace vantro
