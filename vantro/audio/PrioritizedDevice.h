#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace vantro {

/// One entry of the user's list of preferred microphones.
struct PrioritizedDevice
{
    /// The device's UID, stable across runs.
    QString id;
    /// Its name at the time it was added.
    QString name;
    /// Lower comes first.
    int priority = 0;

    friend bool operator==(const PrioritizedDevice&, const PrioritizedDevice&) = default;
};

/// A JSON list of objects with the keys "id", "name" and "priority".
QByteArray encodePrioritizedDevices(const std::vector<PrioritizedDevice>& devices);
/// Returns an empty list for malformed data.
std::vector<PrioritizedDevice> decodePrioritizedDevices(const QByteArray& data);

} // namespace vantro
