#include "base/Translations.h"
#include "vantro/cli/Command.h"
#include "vantro/cli/DevicesSession.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/Interruption.h"
#include "vantro/cli/Terminal.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <stop_token>

namespace vantro {

namespace {

std::vector<PrioritizedDevice> absent(const DevicesSession& session)
{
    std::vector<PrioritizedDevice> result;
    for (const PrioritizedDevice& device : session.devices.priorityOrder()) {
        if (std::ranges::find(session.devices.availableDevices(), device.id, &AudioInputDevice::uid) ==
            session.devices.availableDevices().end())
            result.push_back(device);
    }
    return result;
}

QString rankText(int rank)
{
    return rank > 0 ? QString::number(rank) : QStringLiteral("-");
}

QString stateText(const DevicesSession& session, const AudioInputDevice& device)
{
    QStringList words;
    if (session.used() != nullptr && session.used()->id == device.id)
        words << Command::tr("used");
    if (session.isDefault(device))
        words << Command::tr("default");
    return words.isEmpty() ? QStringLiteral("-") : words.join(QStringLiteral(", "));
}

QJsonObject toJson(const DevicesSession& session)
{
    QJsonArray present;
    const AudioInputDevice* const used = session.used();
    for (const AudioInputDevice& device : session.devices.availableDevices())
        present.append(QJsonObject{{QStringLiteral("id"), static_cast<qint64>(device.id)},
                                   {QStringLiteral("name"), device.uid},
                                   {QStringLiteral("description"), device.name},
                                   {QStringLiteral("default"), session.isDefault(device)},
                                   {QStringLiteral("used"), used != nullptr && used->id == device.id},
                                   {QStringLiteral("priority"), session.rank(device.uid)}});
    QJsonArray missing;
    for (const PrioritizedDevice& device : absent(session))
        missing.append(QJsonObject{{QStringLiteral("name"), device.id},
                                   {QStringLiteral("description"), device.name},
                                   {QStringLiteral("priority"), session.rank(device.id)}});
    return {{QStringLiteral("mode"), rawValue(session.devices.inputMode())},
            {QStringLiteral("devices"), present},
            {QStringLiteral("absent"), missing}};
}

} // namespace

const AudioInputDevice* DevicesSession::used() const
{
    const auto effective = devices.effectiveDeviceID();
    const auto id = effective ? effective : sound.audioHardware->defaultInputDevice();
    const auto found = std::ranges::find_if(devices.availableDevices(),
                                            [&](const auto& device) { return id == std::optional(device.id); });
    return found != devices.availableDevices().end() ? &*found : nullptr;
}

bool DevicesSession::isDefault(const AudioInputDevice& device) const
{
    return sound.audioHardware->defaultInputDevice() == std::optional(device.id);
}

int DevicesSession::rank(const QString& uid) const
{
    const auto order = devices.priorityOrder();
    const auto found = std::ranges::find(order, uid, &PrioritizedDevice::id);
    return found != order.end() ? static_cast<int>(found - order.begin()) + 1 : 0;
}

int listDevices(const DevicesSession& session)
{
    const Translations::Suspension forScripts(!terminal::outputIsTerminal());
    if (session.json) {
        terminal::writeJson(toJson(session));
        return ExitCode::done;
    }
    std::vector<QStringList> rows{{Command::tr("ID"), Command::tr("NAME"), Command::tr("DESCRIPTION"),
                                   Command::tr("PRIORITY"), Command::tr("STATE")}};
    for (const AudioInputDevice& device : session.devices.availableDevices())
        rows.push_back({QString::number(device.id), device.uid, device.name, rankText(session.rank(device.uid)),
                        stateText(session, device)});
    for (const PrioritizedDevice& device : absent(session))
        rows.push_back(
            {QStringLiteral("-"), device.id, device.name, rankText(session.rank(device.id)), Command::tr("absent")});
    terminal::writeTable(rows);
    if (terminal::outputIsTerminal())
        terminal::writeLine(QStringLiteral("\n%1: %2")
                                .arg(rawValue(session.devices.inputMode()), caption(session.devices.inputMode())));
    return ExitCode::done;
}

int watchDevices(DevicesSession& session)
{
    const Interruption interruption;
    QEventLoop loop;
    const std::stop_callback stopped(interruption.token(), [&loop] { loop.quit(); });
    // Connected after the device manager, which therefore handles a change first.
    QObject::connect(session.sound.audioHardware.get(), &AudioHardware::devicesChanged, &loop,
                     [&session] { listDevices(session); });
    for (const auto changed : {&AudioDeviceManager::inputModeChanged, &AudioDeviceManager::selectedDeviceIDChanged,
                               &AudioDeviceManager::prioritizedDevicesChanged})
        QObject::connect(&session.devices, changed, &loop, [&session] { listDevices(session); });
    session.defaults.watch();
    listDevices(session);
    loop.exec();
    return ExitCode::interrupted;
}

} // namespace vantro
