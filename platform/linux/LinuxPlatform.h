#pragma once

#include "platform/Platform.h"

namespace vantro {

/// The adapters for Linux: PulseAudio or PipeWire, and X11. Parts that are missing on this desktop answer with clear
/// errors when they are used. Needs a QGuiApplication.
Platform makeLinuxPlatform();
/// The part of it that needs no display, for commands: secrets and languages. The rest stays empty.
Platform makeLinuxCommandPlatform();

/// For commands: the microphones and nothing else. Needs a Qt application object.
Platform makeLinuxSound();
/// For commands: the hot keys and the desktop's shortcuts and nothing else.
Platform makeLinuxKeyboard();

} // namespace vantro
