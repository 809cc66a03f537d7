#include "platform/linux/pulse/PulseAudioCards.h"

#include "platform/linux/pulse/PulseConnection.h"
#include "platform/linux/pulse/PulseLoop.h"

#include <algorithm>

namespace vantro {

namespace {

// Both PulseAudio and PipeWire name them "bluez_card.AA_BB_CC_DD_EE_FF".
const QString bluetoothPrefix = QStringLiteral("bluez_card.");

} // namespace

std::optional<HeadsetCard> PulseAudioCards::headsetOf(const PulseCard& card)
{
    if (!card.name.startsWith(bluetoothPrefix))
        return std::nullopt;
    HeadsetCard headset{.uid = card.name,
                        .name = card.description,
                        .address = card.name.mid(bluetoothPrefix.size()),
                        .activeProfile = card.activeProfile,
                        .headsetProfile = {}};
    const PulseCard::Profile* best = nullptr;
    for (const PulseCard::Profile& profile : card.profiles) {
        if (profile.records && profile.isAvailable && (best == nullptr || profile.priority > best->priority))
            best = &profile;
    }
    if (best != nullptr)
        headset.headsetProfile = best->name;
    return headset;
}

std::vector<HeadsetCard> PulseAudioCards::headsets() const
{
    std::vector<HeadsetCard> result;
    for (const PulseCard& card : connection_.snapshot().cards) {
        if (const auto headset = headsetOf(card))
            result.push_back(*headset);
    }
    return result;
}

void PulseAudioCards::setProfile(const QString& cardUid, const QString& profile)
{
    connection_.loop().setCardProfile(cardUid.toStdString(), profile.toStdString());
}

} // namespace vantro
