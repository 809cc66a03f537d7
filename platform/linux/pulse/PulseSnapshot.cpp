#include "platform/linux/pulse/PulseSnapshot.h"

#include <algorithm>

namespace vantro {

namespace {

template <typename Predicate>
const PulseSource* firstMicrophone(const std::vector<PulseSource>& sources, Predicate fits)
{
    const auto found = std::ranges::find_if(sources, [&](const auto& s) { return !s.isMonitor && fits(s); });
    return found != sources.end() ? &*found : nullptr;
}

} // namespace

const PulseSource* PulseSnapshot::microphone(const QString& name) const
{
    return firstMicrophone(sources, [&](const auto& source) { return source.name == name; });
}

const PulseSource* PulseSnapshot::microphone(AudioDeviceID id) const
{
    return firstMicrophone(sources, [&](const auto& source) { return source.id == id; });
}

const PulseSource* PulseSnapshot::defaultMicrophone() const
{
    if (const auto* const named = microphone(defaultSourceName))
        return named;
    return firstMicrophone(sources, [](const auto&) { return true; });
}

std::vector<const PulseSource*> PulseSnapshot::microphones() const
{
    std::vector<const PulseSource*> result;
    for (const PulseSource& source : sources) {
        if (!source.isMonitor)
            result.push_back(&source);
    }
    return result;
}

} // namespace vantro
