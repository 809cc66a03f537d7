#pragma once

#include "platform/AudioCards.h"
#include "platform/AudioEngine.h"
#include "platform/AudioHardware.h"
#include "platform/DesktopAppearance.h"
#include "platform/DesktopShortcuts.h"
#include "platform/HotKeyManager.h"
#include "platform/KeyEventPoster.h"
#include "platform/LanguageRecognizer.h"
#include "platform/LoginItem.h"
#include "platform/Pasteboard.h"
#include "platform/Permissions.h"
#include "platform/SecretStore.h"
#include "platform/SystemInfo.h"
#include "platform/SystemSounds.h"
#include "platform/TrayHost.h"
#include "platform/Workspace.h"

#include <memory>

namespace vantro {

/// What the operating system gives, handed out as one bundle that outlives everything that uses it.
struct Platform
{
    /// The connections that the adapters share; goes last.
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
    std::unique_ptr<SystemInfo> systemInfo;
    std::unique_ptr<SystemSounds> sounds;
    std::unique_ptr<TrayHost> tray;
    std::unique_ptr<Workspace> workspace;
};

/// What a process wants of it: the desktop program everything, which needs a QGuiApplication; a command the part that
/// it works on, with any Qt application and without a display. The other members stay null.
enum class PlatformPart {
    everything,
    microphones, ///< their list alone
    shortcuts,   ///< hot keys, and what the desktop has bound
    services,    ///< secrets and languages
};

/// The running system's. What is missing on this desktop answers with a clear error when it is used.
[[nodiscard]] Platform makePlatform(PlatformPart part = PlatformPart::everything);

} // namespace vantro
