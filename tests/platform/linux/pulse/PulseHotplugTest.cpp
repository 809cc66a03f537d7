// Microphones that come and go at every moment of a dictation, and the user's order of them.
#include "tests/platform/linux/pulse/PulseServer.h"
#include "tests/platform/linux/pulse/RecordingRig.h"
#include "tests/platform/linux/pulse/Signal.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <optional>

using namespace std::chrono_literals;
using namespace vantro;
using namespace vantro::testing;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const QString table = QStringLiteral("table");
const QString headset = QStringLiteral("headset");
const QString speech = QStringLiteral("rate=16000 channels=1");
constexpr int rateHz = 16'000;
constexpr std::size_t second = rateHz;

class PulseHotplug : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (PulseServer::reasonToSkip() != nullptr)
            GTEST_SKIP() << PulseServer::reasonToSkip();
        server.start();
        server.addLoudspeaker(QStringLiteral("speaker"), speech);
        server.addMicrophone(table, speech);
        server.setDefaultMicrophone(table);
        rig.emplace(server.address());
        ASSERT_TRUE(rig->connection.serverAnswers());
        rig->devices.refreshAvailableDevices();
    }

    [[nodiscard]] bool knows(const std::vector<QString>& names) const
    {
        return QTest::qWaitFor(
            [&] {
                std::vector<QString> known;
                for (const AudioInputDevice& device : rig->devices.availableDevices())
                    known.push_back(device.uid);
                return known == names;
            },
            RecordingRig::patienceMs);
    }

    /// The sources that are recorded from now, by their names.
    [[nodiscard]] std::vector<QString> recorded()
    {
        std::map<QString, QString> names;
        for (const QString& line :
             server.control({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sources")})
                 .split(QLatin1Char('\n'), Qt::SkipEmptyParts))
            names[line.section(QLatin1Char('\t'), 0, 0)] = line.section(QLatin1Char('\t'), 1, 1);
        std::vector<QString> result;
        for (const QString& line :
             server.control({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("source-outputs")})
                 .split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            if (!line.contains(QStringLiteral("module-remap-source")))
                result.push_back(names[line.section(QLatin1Char('\t'), 1, 1)]);
        }
        return result;
    }

    void rankFirst(const QString& first, const QString& then)
    {
        rig->devices.setPrioritizedDevices(
            {{.id = first, .name = first, .priority = 1}, {.id = then, .name = then, .priority = 2}});
        rig->devices.setInputMode(AudioInputMode::prioritized);
    }

    /// Plays @p sound into @p microphone to its end while it is recorded.
    void speak(const std::vector<float>& sound, const QString& microphone)
    {
        const auto player = server.play(sound, rateHz, 1, microphone);
        ASSERT_TRUE(QTest::qWaitFor([&] { return player->hasEnded(); }, RecordingRig::patienceMs));
    }

    PulseServer server;
    std::optional<RecordingRig> rig;
};

} // namespace

TEST_F(PulseHotplug, AMicrophoneUnpluggedRightBeforeTheStartIsReplacedByAnother)
{
    server.addMicrophone(headset, speech);
    ASSERT_TRUE(knows({table, headset}));
    rankFirst(headset, table);
    server.removeMicrophone(headset); // and the program has not heard of it
    ASSERT_TRUE(rig->start()) << rig->error;
    const std::vector<float> sound = noise(second, 1);
    speak(sound, table);
    const Comparison comparison = compare(rig->stop(), sound);
    EXPECT_GE(comparison.recordedCount(), sound.size() - rateHz * 60 / 1000);
    EXPECT_THAT(rig->lost, IsEmpty());
}

TEST_F(PulseHotplug, AStoredDeviceThatNeverComesBackIsNoObstacle)
{
    server.addMicrophone(headset, speech);
    ASSERT_TRUE(knows({table, headset}));
    rig->devices.setSelectedDeviceID(rig->devices.availableDevices()[1].id);
    rig->devices.setInputMode(AudioInputMode::custom);
    server.removeMicrophone(headset);
    ASSERT_TRUE(knows({table}));
    for (int dictation = 0; dictation < 3; ++dictation) {
        ASSERT_TRUE(rig->start()) << rig->error;
        EXPECT_THAT(recorded(), ElementsAre(table));
        rig->recorder.cancelRecording();
    }
    server.addTwin(headset, table);
    ASSERT_TRUE(knows({table, headset}));
    ASSERT_TRUE(rig->start()) << rig->error;
    EXPECT_THAT(recorded(), ElementsAre(headset)) << "it was not forgotten";
}

TEST_F(PulseHotplug, AMicrophoneThatComesInTheMiddleChangesNothingUntilTheNextDictation)
{
    rankFirst(headset, table);
    ASSERT_TRUE(rig->start()) << rig->error;
    server.addMicrophone(headset, speech);
    ASSERT_TRUE(knows({table, headset}));
    const std::vector<float> sound = noise(second, 1);
    speak(sound, table);
    EXPECT_THAT(recorded(), ElementsAre(table));
    EXPECT_EQ(compare(rig->stop(), sound).recordedCount(), sound.size());
}
