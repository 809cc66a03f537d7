#pragma once

#include "platform/AudioCards.h"
#include "platform/AudioEngine.h"
#include "platform/AudioHardware.h"
#include "platform/DesktopAppearance.h"
#include "platform/DesktopShortcuts.h"
#include "platform/DesktopWays.h"
#include "platform/HotKeyManager.h"
#include "platform/KeyEventPoster.h"
#include "platform/LanguageRecognizer.h"
#include "platform/LoginItem.h"
#include "platform/Pasteboard.h"
#include "platform/Permissions.h"
#include "platform/SecretStore.h"
#include "platform/SessionState.h"
#include "platform/SoundPlayer.h"
#include "platform/SystemInfo.h"
#include "platform/SystemSounds.h"
#include "platform/TrayHost.h"
#include "platform/Workspace.h"

#include <memory>

namespace vantro {

/// All operating system interfaces; must outlive all users.
struct Platform
{
    /// The adapters' shared connections; first, so that it is destroyed last.
    std::shared_ptr<void> connections;
    std::unique_ptr<AudioHardware> audioHardware;
    std::unique_ptr<AudioCards> audioCards;
    AudioEngineFactory makeAudioEngine;
    std::unique_ptr<DesktopAppearance> appearance;
    std::unique_ptr<HotKeyManager> hotKeys;
    std::unique_ptr<DesktopShortcuts> desktopShortcuts;
    std::unique_ptr<KeyEventPoster> keyEvents;
    std::unique_ptr<LanguageRecognizer> languages;
    std::unique_ptr<LoginItem> loginItem;
    std::unique_ptr<Pasteboard> pasteboard;
    std::unique_ptr<Permissions> permissions;
    std::unique_ptr<SecretStore> secrets;
    std::unique_ptr<SessionState> session;
    std::unique_ptr<SoundPlayer> player;
    std::unique_ptr<SystemInfo> systemInfo;
    std::unique_ptr<SystemSounds> sounds;
    std::unique_ptr<TrayHost> tray;
    std::unique_ptr<Workspace> workspace;
    DesktopWays ways; ///< only with everything
};

/// What to create: everything for the desktop program, which needs a QGuiApplication, or one part for a command, which
/// works with any Qt application and without a display. Other members stay null.
enum class PlatformPart {
    everything,
    microphones, ///< only their list
    shortcuts,   ///< hot keys and the desktop's bindings
    services,    ///< secrets, languages and what is known of the machine
};

/// The running system's implementation. Facilities that are missing throw a clear error on use.
[[nodiscard]] Platform makePlatform(PlatformPart part = PlatformPart::everything);

} // namespace vantro
