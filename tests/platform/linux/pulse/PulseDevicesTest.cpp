#include "platform/Wording.h"
#include "platform/linux/pulse/PulseAudioEngine.h"
#include "platform/linux/pulse/PulseAudioHardware.h"
#include "platform/linux/pulse/PulseConnection.h"
#include "platform/linux/pulse/PulseLoop.h"
#include "tests/platform/linux/pulse/PulseServer.h"

#include <QElapsedTimer>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <optional>
#include <thread>

using namespace vantro;
using ::testing::ElementsAre;
using vantro::testing::PulseServer;

namespace {

const QString alpha = QStringLiteral("alpha");
const QString beta = QStringLiteral("beta");
constexpr int patienceMs = 5'000;

class PulseDevices : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (PulseServer::reasonToSkip() != nullptr)
            GTEST_SKIP() << PulseServer::reasonToSkip();
    }

    void connect()
    {
        connection.emplace(server.address());
        hardware.emplace(*connection);
    }

    [[nodiscard]] std::vector<std::string> names() const
    {
        std::vector<std::string> result;
        for (const AudioInputDevice& device : hardware->inputDevices())
            result.push_back(device.uid.toStdString());
        return result;
    }

    [[nodiscard]] AudioInputDevice device(const QString& uid) const
    {
        const auto devices = hardware->inputDevices();
        const auto found = std::ranges::find(devices, uid, &AudioInputDevice::uid);
        return found != devices.end() ? *found : AudioInputDevice{};
    }

    [[nodiscard]] bool defaultBecomes(const QString& uid)
    {
        return QTest::qWaitFor(
            [&] { return !device(uid).uid.isEmpty() && hardware->defaultInputDevice() == device(uid).id; }, patienceMs);
    }

    PulseServer server;
    std::optional<PulseConnection> connection;
    std::optional<PulseAudioHardware> hardware;
};

} // namespace

TEST_F(PulseDevices, MicrophonesComeAndGoWithoutTheLoudspeakers)
{
    server.start();
    server.addLoudspeaker(QStringLiteral("speaker"));
    server.addMicrophone(alpha);
    connect();
    ASSERT_TRUE(connection->serverAnswers());
    EXPECT_THAT(names(), ElementsAre("alpha")) << "known at once, although nothing waited for it";
    EXPECT_EQ(device(alpha).name, QStringLiteral("The-alpha"));
    EXPECT_TRUE(defaultBecomes(alpha));

    server.addMicrophone(beta);
    EXPECT_TRUE(QTest::qWaitFor([&] { return names().size() == 2; }, patienceMs));
    server.setDefaultMicrophone(beta);
    EXPECT_TRUE(defaultBecomes(beta));
    server.setDefaultMicrophone(QStringLiteral("speaker_sink.monitor"));
    EXPECT_TRUE(defaultBecomes(alpha)) << "a monitor never stands for a microphone";

    server.removeMicrophone(alpha);
    EXPECT_TRUE(defaultBecomes(beta));
    EXPECT_THAT(names(), ElementsAre("beta"));
    server.removeMicrophone(beta);
    EXPECT_TRUE(QTest::qWaitFor([&] { return names().empty(); }, patienceMs));
    EXPECT_EQ(hardware->defaultInputDevice(), std::nullopt);
}

TEST_F(PulseDevices, ADeviceKeepsItsNumberThroughReplugAndServerRestart)
{
    server.start();
    server.addMicrophone(alpha);
    server.addMicrophone(beta);
    connect();
    ASSERT_TRUE(connection->serverAnswers());
    const AudioDeviceID alphaId = device(alpha).id;
    const AudioDeviceID betaId = device(beta).id;
    ASSERT_NE(alphaId, betaId);

    server.removeMicrophone(alpha);
    EXPECT_TRUE(QTest::qWaitFor([&] { return names().size() == 1; }, patienceMs));
    server.addTwin(alpha, alpha);
    EXPECT_TRUE(QTest::qWaitFor([&] { return names().size() == 2; }, patienceMs));
    EXPECT_EQ(device(alpha).id, alphaId);

    server.kill();
    EXPECT_TRUE(QTest::qWaitFor([&] { return names().empty(); }, patienceMs));
    server.start();
    server.addMicrophone(beta);
    server.addMicrophone(QStringLiteral("gamma"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return names().size() == 2; }, patienceMs));
    EXPECT_EQ(device(beta).id, betaId);
    EXPECT_NE(device(QStringLiteral("gamma")).id, alphaId);
    EXPECT_NE(device(QStringLiteral("gamma")).id, betaId);
}

TEST_F(PulseDevices, AServerThatStartsAfterTheProgramIsFoundWithoutAsking)
{
    QElapsedTimer time;
    time.start();
    connect();
    EXPECT_FALSE(connection->serverAnswers());
    EXPECT_LT(time.elapsed(), 500) << "a missing server is told at once";
    EXPECT_TRUE(names().empty());

    PulseAudioEngine engine(*connection);
    engine.installTap(1024, engine.inputFormat(), [](const AudioTapBuffer&) {});
    try {
        engine.start();
        ADD_FAILURE() << "an engine without a server";
    } catch (const AudioEngineError& error) {
        EXPECT_EQ(error.localizedDescription(), wording::noSoundServer());
    }

    server.start();
    server.addMicrophone(alpha);
    EXPECT_TRUE(QTest::qWaitFor([&] { return names().size() == 1; }, patienceMs));
}

TEST_F(PulseDevices, AServerThatHangsCostsABoundedWaitOnce)
{
    server.start();
    server.addMicrophone(alpha);
    server.freeze();
    QElapsedTimer time;
    time.start();
    connect();
    EXPECT_LT(time.elapsed(), 100) << "the program's start must not wait";
    EXPECT_FALSE(connection->serverAnswers());
    EXPECT_LT(time.elapsed(), 1'500);
    time.restart();
    EXPECT_FALSE(connection->serverAnswers());
    EXPECT_LT(time.elapsed(), 100) << "the second question already knows";

    server.thaw();
    EXPECT_TRUE(QTest::qWaitFor([&] { return names().size() == 1; }, patienceMs));
    EXPECT_TRUE(connection->serverAnswers());
}

TEST_F(PulseDevices, AStormOfChangesEndsInTheLastState)
{
    server.start();
    server.addMicrophone(alpha);
    server.addMicrophone(beta);
    connect();
    ASSERT_TRUE(connection->serverAnswers());
    int announced = 0;
    QObject::connect(&*hardware, &AudioHardware::devicesChanged, &*hardware, [&] { ++announced; });
    for (int i = 0; i < 10; ++i) {
        server.setDefaultMicrophone(alpha);
        server.setDefaultMicrophone(beta);
    }
    EXPECT_TRUE(defaultBecomes(beta));
    EXPECT_LE(announced, 20);
    server.removeMicrophone(beta);
    EXPECT_TRUE(defaultBecomes(alpha));
}

TEST_F(PulseDevices, ASelectedDeviceIsEchoedExactlyOnceAndOthersAreRefused)
{
    server.start();
    server.addMicrophone(alpha);
    server.addMicrophone(beta, QStringLiteral("rate=44100 channels=2"));
    server.setDefaultMicrophone(alpha);
    connect();
    ASSERT_TRUE(connection->serverAnswers());
    PulseAudioEngine engine(*connection);
    int changes = 0;
    std::atomic<std::size_t> frames = 0;
    QObject::connect(&engine, &AudioEngine::configurationChanged, &engine, [&] { ++changes; });
    EXPECT_THROW(engine.selectInputDevice(4'711), AudioEngineError);
    EXPECT_EQ(engine.deviceFormat(), std::nullopt);
    engine.selectInputDevice(device(beta).id);
    EXPECT_EQ(engine.deviceFormat(), (AudioFormat{44'100, 2}));
    EXPECT_EQ(engine.inputFormat(), (AudioFormat{48'000, 1}));

    engine.installTap(1024, *engine.deviceFormat(), [&](const AudioTapBuffer& buffer) {
        EXPECT_EQ(buffer.frameLength(), 1024U);
        EXPECT_EQ(buffer.channelCount(), 2U);
        frames += buffer.frameLength();
    });
    engine.start();
    EXPECT_EQ(changes, 0) << "the echo comes once the engine runs";
    EXPECT_TRUE(QTest::qWaitFor([&] { return frames >= 20U * 1024; }, patienceMs));
    EXPECT_EQ(changes, 1);
    server.setDefaultMicrophone(beta);
    server.setDefaultMicrophone(alpha);
    const std::size_t heard = frames;
    EXPECT_TRUE(QTest::qWaitFor([&] { return frames >= heard + 20U * 1024; }, patienceMs));
    EXPECT_EQ(changes, 1) << "an engine with a device of its own does not follow the default";
    engine.removeTap();
    engine.stop();
}

TEST_F(PulseDevices, BlocksThatWereOnlyLateNeedNoNewStream)
{
    server.start();
    server.addMicrophone(alpha);
    connect();
    ASSERT_TRUE(connection->serverAnswers());
    PulseAudioEngine engine(*connection);
    int changes = 0;
    std::atomic<int> blocks = 0;
    QObject::connect(&engine, &AudioEngine::configurationChanged, &engine, [&] { ++changes; });
    engine.installTap(1024, engine.inputFormat(), [&](const AudioTapBuffer&) { ++blocks; });
    engine.start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return blocks >= 5; }, patienceMs));
    {
        const PulseLoop::Lock busy(connection->loop()); // the thread that reads them gets no time
        const int before = blocks;
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        EXPECT_EQ(blocks, before);
        engine.reportStall();
    }
    const int seen = blocks;
    EXPECT_TRUE(QTest::qWaitFor([&] { return blocks >= seen + 30; }, patienceMs));
    EXPECT_EQ(changes, 0);
    engine.stop();
}
