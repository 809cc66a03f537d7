#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace vantro {

/// One entry of the user's list of preferred microphones.
struct PrioritizedDevice
{
    /// The device's unique identifier, which it has in every run.
    QString id;
    /// Its name when it was added.
    QString name;
    /// Lower comes first.
    int priority = 0;

    friend bool operator==(const PrioritizedDevice&, const PrioritizedDevice&) = default;
};

/// A JSON list of objects with the keys "id", "name" and "priority".
QByteArray encodePrioritizedDevices(const std::vector<PrioritizedDevice>& devices);
/// Empty for data that is not such a list: settings that cannot be read count as absent.
std::vector<PrioritizedDevice> decodePrioritizedDevices(const QByteArray& data);

} // namespace vantro
