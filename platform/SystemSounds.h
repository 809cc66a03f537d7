#pragma once

namespace vantro {

/// The short sounds of the user's desktop.
class SystemSounds
{
public:
    SystemSounds() = default;
    virtual ~SystemSounds() = default;
    SystemSounds(const SystemSounds&) = delete;
    SystemSounds& operator=(const SystemSounds&) = delete;

    /// Plays the sound for a finished task. Returns at once, from any thread; without a sound theme or a sound server
    /// nothing is heard.
    virtual void playCompleted() = 0;
};

} // namespace vantro
