#pragma once

#include "base/UserDefaults.h"
#include "platform/Permissions.h"
#include "platform/linux/pulse/PulseAudioEngine.h"
#include "platform/linux/pulse/PulseAudioHardware.h"
#include "platform/linux/pulse/PulseConnection.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/AudioRecorder.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vantro::testing {

class ServerPermissions final : public Permissions
{
public:
    explicit ServerPermissions(PulseConnection& connection) : connection_(connection) {}
    [[nodiscard]] bool microphoneAuthorized() const override { return connection_.serverAnswers(); }
    [[nodiscard]] bool trustedForAccessibility() const override { return true; }

private:
    PulseConnection& connection_;
};

/// The program's capture side, on a server of the test's own.
struct RecordingRig
{
    static constexpr int patienceMs = 10'000;

    explicit RecordingRig(const QString& address) : connection(address)
    {
        QObject::connect(&recorder, &AudioRecorder::captureGivenUp, &recorder,
                         [this] { lost.push_back(recorder.lostCapture()->reason().toStdString()); });
        QObject::connect(&recorder, &AudioRecorder::currentAmplitudeChanged, &recorder, [this] { ++levelCount; });
    }

    /// Whether a recording has begun; `error` tells why not.
    bool start()
    {
        error.clear();
        try {
            return recorder.startRecording();
        } catch (const CaptureError& failure) {
            error = failure.what();
            return false;
        }
    }
    /// Waits for about @p levelChanges thirtieths of a second of sound that is not silence.
    [[nodiscard]] bool hears(int levelChanges)
    {
        return QTest::qWaitFor([&, target = levelCount + levelChanges] { return levelCount >= target; }, patienceMs);
    }
    /// Waits until the microphone is lost for good.
    [[nodiscard]] bool hasLost()
    {
        return QTest::qWaitFor([&] { return !lost.empty(); }, patienceMs);
    }
    /// Ends the recording as a dictation does; what it captured.
    [[nodiscard]] std::vector<float> stop()
    {
        recorder.stopRecording();
        QTest::qWait(AudioRecorder::drainDelay.count());
        return recorder.takeSamples();
    }

    PulseConnection connection;
    PulseAudioHardware hardware{connection};
    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    AudioDeviceManager devices{hardware, defaults};
    ServerPermissions permissions{connection};
    SystemClock clock;
    std::vector<std::string> lost; ///< the reasons
    std::string error;
    int levelCount = 0;
    AudioRecorder recorder{[this] { return std::make_unique<PulseAudioEngine>(connection); }, devices, permissions,
                           clock};
};

} // namespace vantro::testing
