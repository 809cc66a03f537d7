// Recordings that are played to the user, on a real sound server.
#include "platform/linux/pulse/PulseSoundPlayer.h"
#include "tests/platform/linux/pulse/PulseServer.h"
#include "tests/platform/linux/pulse/RecordingRig.h"
#include "tests/platform/linux/pulse/Signal.h"

#include <QSignalSpy>

using namespace vantro;
using namespace vantro::testing;

namespace {

constexpr int patienceMs = 20'000;

class PulsePlaybackTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (const char* reason = PulseServer::reasonToSkip())
            GTEST_SKIP() << reason;
        server.start();
        server.addMicrophone(QStringLiteral("ears"), QStringLiteral("rate=16000 channels=1"));
    }
    PulseServer server;
};

} // namespace

TEST_F(PulsePlaybackTest, IsHeardFromTheGivenPlaceToItsEnd)
{
    RecordingRig rig(server.address());
    PulseSoundPlayer player(rig.connection);
    QSignalSpy ended(&player, &SoundPlayer::ended);
    const auto played = noise(48'000, 7);
    ASSERT_TRUE(rig.start()) << rig.error;
    player.play(played, 16'000);
    EXPECT_TRUE(player.isPlaying());
    EXPECT_GE(player.position(), 16'000U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return player.position() > 24'000; }, patienceMs)) << "it tells where it is";
    ASSERT_TRUE(ended.wait(patienceMs));
    EXPECT_EQ(ended.front().front().toString(), QString());
    EXPECT_FALSE(player.isPlaying());
    EXPECT_EQ(player.position(), played.size());
    const auto heard = compare(rig.stop(), played);
    ASSERT_FALSE(heard.stretches.empty());
    EXPECT_EQ(heard.stretches.front().playedBegin, 16'000U);
}

TEST_F(PulsePlaybackTest, StopsWhereItIsAndSaysWhenItCannot)
{
    PulseConnection connection(server.address());
    PulseSoundPlayer player(connection);
    QSignalSpy ended(&player, &SoundPlayer::ended);
    player.play(noise(160'000, 8), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return player.position() > 1'000; }, patienceMs));
    player.stop();
    const auto place = player.position();
    EXPECT_GT(place, 1'000U);
    EXPECT_LT(place, 160'000U);
    EXPECT_FALSE(player.isPlaying());
    player.play(noise(160'000, 8), place);
    server.kill();
    ASSERT_TRUE(ended.wait(patienceMs));
    EXPECT_FALSE(ended.front().front().toString().isEmpty());
    EXPECT_FALSE(player.isPlaying());
    player.play({0.5F}, 0);
    ASSERT_EQ(ended.size(), 2);
    EXPECT_FALSE(ended.back().front().toString().isEmpty());
}
