#include "vantro/audio/PrioritizedDevice.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vantro {

namespace {

const QString idKey = QStringLiteral("id");
const QString nameKey = QStringLiteral("name");
const QString priorityKey = QStringLiteral("priority");

} // namespace

QByteArray encodePrioritizedDevices(const std::vector<PrioritizedDevice>& devices)
{
    QJsonArray list;
    for (const PrioritizedDevice& device : devices)
        list.append(QJsonObject{{idKey, device.id}, {nameKey, device.name}, {priorityKey, device.priority}});
    return QJsonDocument(list).toJson(QJsonDocument::Compact);
}

std::vector<PrioritizedDevice> decodePrioritizedDevices(const QByteArray& data)
{
    const QJsonArray list = QJsonDocument::fromJson(data).array();
    std::vector<PrioritizedDevice> devices;
    for (const auto& value : list) {
        const QJsonObject record = value.toObject();
        if (!record[idKey].isString() || !record[nameKey].isString() || !record[priorityKey].isDouble())
            return {};
        devices.push_back({.id = record[idKey].toString(),
                           .name = record[nameKey].toString(),
                           .priority = record[priorityKey].toInt()});
    }
    return devices;
}

} // namespace vantro
