#include "base/SampleFormat.h"
#include "platform/Wording.h"
#include "tests/platform/linux/pulse/PulseServer.h"
#include "tests/platform/linux/pulse/RecordingRig.h"
#include "tests/platform/linux/pulse/Signal.h"
#include "vantro/audio/SampleCollector.h"
#include "vantro/audio/TapConverter.h"

#include <QElapsedTimer>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

using namespace std::chrono_literals;
using namespace vantro;
using namespace vantro::testing;
using ::testing::HasSubstr;

namespace {

const QString alpha = QStringLiteral("alpha");
const QString beta = QStringLiteral("beta");
const QString speech = QStringLiteral("rate=16000 channels=1");
constexpr int patienceMs = RecordingRig::patienceMs;
constexpr int speechRateHz = 16'000;

std::vector<float> toSixteenKilohertz(const std::vector<float>& mono)
{
    const auto converter = TapConverter::create({.sampleRateHz = 48'000, .channelCount = 1});
    SampleCollector collector;
    const std::array<const float*, 1> channels{mono.data()};
    converter->convert(AudioTapBuffer(channels, mono.size()), collector);
    converter->drain(collector);
    return collector.takeSamples();
}

class PulseRecording : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (PulseServer::reasonToSkip() != nullptr)
            GTEST_SKIP() << PulseServer::reasonToSkip();
        server.start();
        server.addMicrophone(alpha, speech);
        server.setDefaultMicrophone(alpha);
    }

    /// Makes the program and lets it record what is being played into alpha, while a loudspeaker plays something else.
    void recordWhilePlaying(std::chrono::seconds length)
    {
        server.addLoudspeaker(QStringLiteral("speaker"), speech);
        rig.emplace(server.address());
        ASSERT_TRUE(rig->start()) << rig->error;
        played = noise(static_cast<std::size_t>(length.count()) * speechRateHz, 1);
        music = server.play(noise(played.size() * 4, 2), speechRateHz, 1, QStringLiteral("speaker"));
        player = server.play(played, speechRateHz, 1, alpha);
        ASSERT_TRUE(rig->hears(10));
    }

    [[nodiscard]] static bool hasEnded(ChildProcess& process)
    {
        return QTest::qWaitFor([&] { return process.hasEnded(); }, patienceMs);
    }

    /// How many played samples a recording lacks that has lost some in one place at most, and not at its ends.
    static std::size_t holeIn(const std::vector<float>& recorded, const std::vector<float>& played)
    {
        const Comparison comparison = compare(recorded, played);
        EXPECT_EQ(comparison.foreignCount, 0U) << "something else was recorded";
        if (comparison.stretches.empty() || comparison.stretches.size() > 2) {
            ADD_FAILURE() << comparison.stretches.size() << " stretches";
            return played.size();
        }
        EXPECT_EQ(comparison.stretches.front().playedBegin, 0U);
        EXPECT_EQ(comparison.stretches.back().playedEnd(), played.size());
        return played.size() - comparison.recordedCount();
    }

    PulseServer server;
    std::optional<RecordingRig> rig;
    std::vector<float> played;
    std::unique_ptr<ChildProcess> player;
    std::unique_ptr<ChildProcess> music;
};

constexpr std::size_t tolerableHole = speechRateHz * 60 / 1000;

} // namespace

TEST_F(PulseRecording, EverySampleIsRecordedBitForBit)
{
    recordWhilePlaying(2s);
    ASSERT_TRUE(hasEnded(*player));
    const Comparison comparison = compare(rig->stop(), played);
    ASSERT_EQ(comparison.stretches.size(), 1U);
    EXPECT_EQ(comparison.stretches[0].playedBegin, 0U);
    EXPECT_EQ(comparison.stretches[0].length, played.size());
    EXPECT_EQ(comparison.foreignCount, 0U);
    EXPECT_TRUE(rig->lost.empty());
}

TEST_F(PulseRecording, AStereoDeviceAtItsOwnRateIsMixedAndConverted)
{
    server.addMicrophone(beta, QStringLiteral("rate=48000 channels=2"));
    rig.emplace(server.address());
    rig->devices.setPrioritizedDevices({{.id = beta, .name = beta, .priority = 1}});
    rig->devices.setInputMode(AudioInputMode::prioritized);
    ASSERT_TRUE(rig->start()) << rig->error;
    const std::vector<float> sound = noise(48'000, 3);
    std::vector<float> interleaved;
    for (const float sample : sound)
        interleaved.insert(interleaved.end(), {sample, 0.0F});
    player = server.play(interleaved, 48'000, 2, beta);
    ASSERT_TRUE(hasEnded(*player));
    const std::vector<float> recorded = rig->stop();

    // The sound may have begun at any of the three input frames that make one output sample.
    float worst = 1;
    for (std::size_t phase = 0; phase < 3; ++phase) {
        std::vector<float> mean(phase, 0.0F);
        std::ranges::transform(sound, std::back_inserter(mean), [](float sample) { return sample / 2; });
        mean.resize(mean.size() + 4'800, 0.0F);
        worst = std::min(worst, worstDifference(recorded, toSixteenKilohertz(mean)));
    }
    EXPECT_LT(worst, 1e-5F);
}

TEST_F(PulseRecording, GoesOnWithAnotherMicrophoneWhenItsOwnIsUnplugged)
{
    server.addTwin(beta, alpha);
    recordWhilePlaying(3s);
    server.removeMicrophone(alpha);
    ASSERT_TRUE(rig->hears(10));
    EXPECT_TRUE(rig->recorder.isRecording());
    ASSERT_TRUE(hasEnded(*player));
    const std::size_t hole = holeIn(rig->stop(), played);
    RecordProperty("hole_ms", std::to_string(hole * 1000 / speechRateHz));
    EXPECT_LE(hole, tolerableHole);
    EXPECT_TRUE(rig->lost.empty());
}

TEST_F(PulseRecording, FollowsTheDefaultMicrophone)
{
    server.addTwin(beta, alpha);
    recordWhilePlaying(3s);
    server.setDefaultMicrophone(beta);
    ASSERT_TRUE(rig->hears(10));
    server.removeMicrophone(alpha); // would cost a second hole if it were still recorded from
    ASSERT_TRUE(hasEnded(*player));
    const std::size_t hole = holeIn(rig->stop(), played);
    RecordProperty("hole_ms", std::to_string(hole * 1000 / speechRateHz));
    EXPECT_LE(hole, tolerableHole);
}

TEST_F(PulseRecording, KeepsWhatWasSaidWhenTheServerDiesAndWorksAgainAfterwards)
{
    recordWhilePlaying(2s);
    ASSERT_TRUE(rig->hears(20));
    server.kill();
    ASSERT_TRUE(rig->hasLost());
    EXPECT_THAT(rig->lost[0], HasSubstr(wording::noSoundServer().toStdString()));
    const Comparison comparison = compare(rig->stop(), played);
    ASSERT_EQ(comparison.stretches.size(), 1U);
    EXPECT_GE(comparison.stretches[0].length, minimumSampleCount);
    EXPECT_FALSE(rig->start());

    server.start();
    server.addMicrophone(alpha, speech);
    ASSERT_TRUE(rig->start()) << "asked before the program had noticed by itself";
    player = server.play(played, speechRateHz, 1, alpha);
    ASSERT_TRUE(hasEnded(*player));
    EXPECT_EQ(compare(rig->stop(), played).stretches.front().length, played.size());
}

TEST_F(PulseRecording, LeavesASuspendedMicrophoneForOneThatHears)
{
    server.addTwin(beta, alpha);
    recordWhilePlaying(3s);
    server.suspendMicrophone(alpha, true);
    ASSERT_TRUE(rig->hears(10));
    ASSERT_TRUE(hasEnded(*player));
    static_cast<void>(holeIn(rig->stop(), played));

    server.removeMicrophone(beta);
    EXPECT_TRUE(QTest::qWaitFor([&] { return rig->devices.availableDevices().size() == 1; }, patienceMs));
    EXPECT_FALSE(rig->start());
    EXPECT_THAT(rig->error, HasSubstr("\"The-alpha\" is switched off"));
    server.suspendMicrophone(alpha, false);
    EXPECT_TRUE(rig->start());
}

TEST_F(PulseRecording, WakesAMicrophoneThatFellAsleepUnused)
{
    server.control(
        {QStringLiteral("load-module"), QStringLiteral("module-suspend-on-idle"), QStringLiteral("timeout=0")});
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            return server.control({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sources")})
                       .count(QStringLiteral("SUSPENDED")) == 2;
        },
        patienceMs));
    recordWhilePlaying(1s);
    ASSERT_TRUE(hasEnded(*player));
    EXPECT_EQ(compare(rig->stop(), played).stretches.front().length, played.size());
}

TEST_F(PulseRecording, AServerThatHangsNeverHoldsTheProgramForLong)
{
    recordWhilePlaying(3s);
    ASSERT_TRUE(rig->hears(10));
    server.freeze();
    QElapsedTimer time;
    time.start();
    const std::vector<float> recorded = rig->stop();
    EXPECT_LT(time.elapsed(), 500);
    EXPECT_GE(compare(recorded, played).stretches.front().length, minimumSampleCount);

    time.restart();
    EXPECT_FALSE(rig->start());
    EXPECT_LT(time.elapsed(), 2'500);
    EXPECT_EQ(rig->error, "Could not start the microphone: " + wording::noSoundServer().toStdString());

    server.thaw();
    EXPECT_TRUE(rig->start());
    server.freeze();
    time.restart();
    rig->recorder.cancelRecording();
    EXPECT_LT(time.elapsed(), 100);
    server.thaw();
}
