#include "platform/Platform.h"
#include "platform/linux/WaylandSession.h"
#include "platform/linux/canberra/CanberraSounds.h"
#include "platform/linux/cld2/Cld2LanguageRecognizer.h"
#include "platform/linux/desktop/LinuxDesktopShortcuts.h"
#include "platform/linux/proc/ProcSystemInfo.h"
#include "platform/linux/pulse/PulseAudioCards.h"
#include "platform/linux/pulse/PulseAudioEngine.h"
#include "platform/linux/pulse/PulseAudioHardware.h"
#include "platform/linux/pulse/PulseConnection.h"
#include "platform/linux/pulse/PulseSoundPlayer.h"
#include "platform/linux/secretservice/SecretServiceStore.h"
#include "platform/linux/session/LinuxSessionState.h"
#include "platform/linux/tray/LinuxTrayHost.h"
#include "platform/linux/wayland/WaylandConnection.h"
#include "platform/linux/wayland/WaylandHotKeyManager.h"
#include "platform/linux/wayland/WaylandKeyEventPoster.h"
#include "platform/linux/wayland/WaylandKeymap.h"
#include "platform/linux/wayland/WaylandPasteboard.h"
#include "platform/linux/wayland/WaylandPermissions.h"
#include "platform/linux/wayland/WaylandWorkspace.h"
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
    std::optional<WaylandConnection> wayland; ///< in a session of that kind, and then without x11
    std::optional<WaylandKeymap> waylandKeymap;
};

void addMicrophones(Platform& platform, Connections& connections)
{
    platform.audioHardware = std::make_unique<PulseAudioHardware>(connections.pulse.emplace());
}

void addShortcuts(Platform& platform, Connections& connections)
{
    if (isWaylandSession())
        platform.hotKeys =
            std::make_unique<WaylandHotKeyManager>(connections.waylandKeymap.emplace(connections.wayland.emplace()));
    else
        platform.hotKeys = std::make_unique<X11HotKeyManager>(connections.x11.emplace());
    platform.desktopShortcuts = std::make_unique<LinuxDesktopShortcuts>();
}

void addServices(Platform& platform)
{
    platform.languages = std::make_unique<Cld2LanguageRecognizer>();
    platform.secrets = std::make_unique<SecretServiceStore>(QStringLiteral("com.vantro.app"));
    platform.systemInfo = std::make_unique<ProcSystemInfo>();
}

DesktopWays waysOfX11()
{
    DesktopWays ways{.desktop = QStringLiteral("X11"),
                     .clipboard = QStringLiteral("selections"),
                     .paste = QStringLiteral("XTEST"),
                     .panel = QStringLiteral("window"),
                     .windows = QStringLiteral("window manager")};
    if (isX11OnWayland()) {
        ways.desktop += QStringLiteral(" on Wayland (%1)").arg(qEnvironmentVariable("XDG_CURRENT_DESKTOP"));
        ways.missing << QCoreApplication::translate(
            "DesktopWays", "On this desktop the shortcut works, and texts are pasted, only in programs "
                           "of X11. Bind a shortcut to the command vantro toggle, and paste yourself.");
    }
    return ways;
}

/// Each facility by the name that its protocol has, or nothing and why that matters.
DesktopWays waysOfWayland(const WaylandPasteboard& pasteboard, const WaylandKeyEventPoster& keyEvents,
                          const WaylandWorkspace& workspace)
{
    const QString name = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    DesktopWays ways{.desktop = name.isEmpty() ? QStringLiteral("Wayland") : QStringLiteral("Wayland (%1)").arg(name)};
    const auto look = [&ways](QString DesktopWays::*way, const QString& protocol, const char* without) {
        ways.*way = protocol;
        if (protocol.isEmpty())
            ways.missing << QCoreApplication::translate("DesktopWays", without);
    };
    look(&DesktopWays::clipboard, pasteboard.isOffered() ? QStringLiteral("data-control") : QString(),
         QT_TRANSLATE_NOOP("DesktopWays", "This desktop lets no program copy in the background: your texts are in the "
                                          "history."));
    look(&DesktopWays::paste, keyEvents.way(),
         QT_TRANSLATE_NOOP("DesktopWays", "This desktop lets no program press keys for you: paste your texts "
                                          "yourself."));
    look(&DesktopWays::panel, workspace.hasPanels() ? QStringLiteral("layer-shell") : QString(),
         QT_TRANSLATE_NOOP("DesktopWays", "This desktop lets no panel stay above other windows."));
    look(&DesktopWays::windows, workspace.windowsWay(),
         QT_TRANSLATE_NOOP("DesktopWays", "This desktop does not tell which window you are in: terminals need "
                                          "Ctrl+Shift+V."));
    return ways;
}

/// Windows, keys and the clipboard, as an X11 desktop has them.
void addX11(Platform& platform, PulseConnection& pulse, X11Connection& x11)
{
    platform.keyEvents = std::make_unique<X11KeyEventPoster>(x11);
    platform.pasteboard = std::make_unique<X11Pasteboard>();
    platform.permissions = std::make_unique<X11Permissions>(x11, [&pulse] { return pulse.serverAnswers(); });
    platform.tray = std::make_unique<LinuxTrayHost>(&x11);
    platform.workspace = std::make_unique<X11Workspace>(x11);
    platform.ways = waysOfX11();
}

/// The same of a Wayland desktop, as far as it offers them.
void addWayland(Platform& platform, Connections& connections)
{
    PulseConnection& pulse = *connections.pulse;
    WaylandConnection& wayland = *connections.wayland;
    auto pasteboard = std::make_unique<WaylandPasteboard>();
    auto workspace = std::make_unique<WaylandWorkspace>(wayland);
    auto keyEvents = std::make_unique<WaylandKeyEventPoster>(
        wayland, *connections.waylandKeymap,
        WaylandKeyEventPoster::Hooks{[&pasteboard = *pasteboard] { pasteboard.forgetFetches(); },
                                     [&workspace = *workspace] {
                                         return workspace.isKeyboardTaken();
                                     }});
    platform.permissions = std::make_unique<WaylandPermissions>([&pulse] { return pulse.serverAnswers(); });
    platform.tray = std::make_unique<LinuxTrayHost>(nullptr);
    platform.ways = waysOfWayland(*pasteboard, *keyEvents, *workspace);
    platform.pasteboard = std::move(pasteboard);
    platform.keyEvents = std::move(keyEvents);
    platform.workspace = std::move(workspace);
}

/// Used by the desktop program only.
void addDesktop(Platform& platform, Connections& connections)
{
    PulseConnection& pulse = *connections.pulse;
    if (connections.wayland)
        addWayland(platform, connections);
    else
        addX11(platform, pulse, *connections.x11);
    platform.audioCards = std::make_unique<PulseAudioCards>(pulse);
    platform.makeAudioEngine = [&pulse] {
        return std::make_unique<PulseAudioEngine>(pulse);
    };
    platform.player = std::make_unique<PulseSoundPlayer>(pulse);
    platform.appearance = std::make_unique<PortalAppearance>();
    platform.loginItem =
        std::make_unique<XdgAutostart>(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                                       QCoreApplication::applicationFilePath());
    platform.session = std::make_unique<LinuxSessionState>();
    platform.sounds = std::make_unique<CanberraSounds>();
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
        addDesktop(platform, *connections);
    return platform;
}

} // namespace vantro
