#pragma once

#include "platform/AudioEngine.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace vantro {

/// A recording source of the sound server.
struct PulseSource
{
    /// The server's index, which may be reused after its restart.
    std::uint32_t index = 0;
    /// Our own ID, stable while the program runs.
    AudioDeviceID id = 0;
    QString name;
    QString description;
    bool isMonitor = false;
    AudioFormat format;

    friend bool operator==(const PulseSource&, const PulseSource&) = default;
};

/// A device with profiles, one of which is active.
struct PulseCard
{
    struct Profile
    {
        QString name;
        bool records = false;
        bool isAvailable = false;
        std::uint32_t priority = 0;
    };

    QString name;
    QString description;
    QString activeProfile;
    std::vector<Profile> profiles;
};

/// The sound server's state at one moment.
struct PulseSnapshot
{
    enum class Phase { Connecting, Ready, Failed };

    Phase phase = Phase::Connecting;
    /// Number of the listing it comes from; increases monotonically, even across reconnections.
    std::uint64_t listing = 0;
    QString defaultSourceName;
    /// Empty unless ready.
    std::vector<PulseSource> sources;
    std::vector<PulseCard> cards;

    /// Returns null if the source is missing or a loudspeaker monitor.
    [[nodiscard]] const PulseSource* microphone(const QString& name) const;
    [[nodiscard]] const PulseSource* microphone(AudioDeviceID id) const;
    /// The server's default source, or the first microphone if that is missing or a monitor; may be null.
    [[nodiscard]] const PulseSource* defaultMicrophone() const;
    [[nodiscard]] std::vector<const PulseSource*> microphones() const;
};

} // namespace vantro
