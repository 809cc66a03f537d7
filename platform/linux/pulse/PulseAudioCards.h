#pragma once

#include "platform/AudioCards.h"
#include "platform/linux/pulse/PulseSnapshot.h"

#include <optional>

namespace vantro {

class PulseConnection;

/// The sound server's Bluetooth cards.
class PulseAudioCards final : public AudioCards
{
    Q_OBJECT
public:
    explicit PulseAudioCards(PulseConnection& connection) : connection_(connection) {}

    [[nodiscard]] std::vector<HeadsetCard> headsets() const override;
    void setProfile(const QString& cardUid, const QString& profile) override;

    /// Converts @p card; nullopt if it is not a Bluetooth card.
    static std::optional<HeadsetCard> headsetOf(const PulseCard& card);

private:
    PulseConnection& connection_;
};

} // namespace vantro
