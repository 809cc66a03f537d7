#include "platform/linux/pulse/PulseAudioCards.h"

#include <gtest/gtest.h>

using namespace vantro;

TEST(PulseCards, ABluetoothCardIsAHeadsetWithItsBestProfileThatRecordsAndIsAvailable)
{
    PulseCard card{.name = QStringLiteral("bluez_card.AA_BB_CC"),
                   .description = QStringLiteral("Headphones"),
                   .activeProfile = QStringLiteral("a2dp-sink"),
                   .profiles = {{QStringLiteral("off"), false, true, 0},
                                {QStringLiteral("a2dp-sink"), false, true, 40},
                                {QStringLiteral("headset-head-unit-cvsd"), true, true, 20},
                                {QStringLiteral("headset-head-unit"), true, true, 30},
                                {QStringLiteral("headset-head-unit-lc3"), true, false, 90}}};
    const auto headset = PulseAudioCards::headsetOf(card);
    ASSERT_TRUE(headset);
    EXPECT_EQ(headset->headsetProfile, QStringLiteral("headset-head-unit"));
    EXPECT_EQ(headset->address, QStringLiteral("AA_BB_CC"));
    EXPECT_EQ(headset->activeProfile, QStringLiteral("a2dp-sink"));

    card.profiles.resize(2);
    EXPECT_TRUE(PulseAudioCards::headsetOf(card)->headsetProfile.isEmpty());
    card.name = QStringLiteral("alsa_card.pci-0000_00_1f.3");
    EXPECT_FALSE(PulseAudioCards::headsetOf(card)) << "its profiles are none of our business";
}
