#pragma once

#include "platform/AudioCards.h"

#include <utility>

namespace vantro::doubles {

/// Headsets set by a test; records the requested profiles.
class FakeAudioCards final : public AudioCards
{
    Q_OBJECT
public:
    [[nodiscard]] std::vector<HeadsetCard> headsets() const override { return cards; }
    void setProfile(const QString& cardUid, const QString& profile) override
    {
        asked.emplace_back(cardUid, profile);
        for (HeadsetCard& card : cards) {
            if (card.uid == cardUid)
                card.activeProfile = profile;
        }
    }

    std::vector<HeadsetCard> cards;
    std::vector<std::pair<QString, QString>> asked;
};

} // namespace vantro::doubles
