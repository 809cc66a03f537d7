#pragma once

#include <QString>

namespace vantro {

/// Short sounds, by name.
class SystemSounds
{
public:
    SystemSounds() = default;
    virtual ~SystemSounds() = default;
    SystemSounds(const SystemSounds&) = delete;
    SystemSounds& operator=(const SystemSounds&) = delete;

    /// Plays the program's own sound of that name ("Blow"). Returns at once; without a sound server nothing is heard.
    /// Main thread.
    virtual void play(const QString& name) = 0;
};

} // namespace vantro
