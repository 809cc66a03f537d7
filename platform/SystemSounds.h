#pragma once

#include <QString>

namespace vantro {

/// Plays short sounds by name.
class SystemSounds
{
public:
    SystemSounds() = default;
    virtual ~SystemSounds() = default;
    SystemSounds(const SystemSounds&) = delete;
    SystemSounds& operator=(const SystemSounds&) = delete;

    /// Plays the program's sound @p name ("Blow"). Returns immediately; silent without a sound server. Main thread.
    virtual void play(const QString& name) = 0;
};

} // namespace vantro
