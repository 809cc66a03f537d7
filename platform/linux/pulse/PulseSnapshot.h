#pragma once

#include "platform/AudioEngine.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace vantro {

/// One thing the sound server can record from.
struct PulseSource
{
    /// The server's number, which it may give to another source after a restart.
    std::uint32_t index = 0;
    /// The number the program goes by: one source keeps it for as long as the program runs.
    AudioDeviceID id = 0;
    QString name;
    QString description;
    bool isMonitor = false;
    AudioFormat format;

    friend bool operator==(const PulseSource&, const PulseSource&) = default;
};

/// One device that has profiles, of which one is in force.
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

/// What is known of the sound server at one moment.
struct PulseSnapshot
{
    enum class Phase { Connecting, Ready, Failed };

    Phase phase = Phase::Connecting;
    /// Number of the listing it comes from; a later one has a higher number, across reconnections too.
    std::uint64_t listing = 0;
    QString defaultSourceName;
    /// Empty unless ready.
    std::vector<PulseSource> sources;
    std::vector<PulseCard> cards;

    /// The source of that name or number unless it is missing or a loudspeaker's monitor.
    [[nodiscard]] const PulseSource* microphone(const QString& name) const;
    [[nodiscard]] const PulseSource* microphone(AudioDeviceID id) const;
    /// The server's default source; where that is a monitor or missing, the first microphone; null without any.
    [[nodiscard]] const PulseSource* defaultMicrophone() const;
    [[nodiscard]] std::vector<const PulseSource*> microphones() const;
};

} // namespace vantro
