#pragma once

#include "tests/platform/linux/pulse/ChildProcess.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <vector>

namespace vantro::testing {

/// A sound server of the test's own, without hardware. A microphone is a null sink, into which the test plays, with a
/// remapped source on its monitor, which does not look like a monitor. Throws std::runtime_error when anything fails.
class PulseServer
{
public:
    /// Null when the server's programs are installed; otherwise the reason for a skip.
    static const char* reasonToSkip();

    /// What PULSE_SERVER would be; valid before the server runs.
    [[nodiscard]] QString address() const;
    /// Returns when it answers.
    void start();
    /// The way a crash ends it.
    void kill() { daemon_.reset(); }
    void freeze();
    void thaw();

    /// @p format: "rate=48000 channels=2", say.
    void addMicrophone(const QString& name, const QString& format = QStringLiteral("rate=48000 channels=1"));
    void removeMicrophone(const QString& name);
    /// A second source that hears exactly what @p microphone hears.
    void addTwin(const QString& name, const QString& microphone);
    /// A sink with a monitor and no microphone.
    void addLoudspeaker(const QString& name, const QString& format = QStringLiteral("rate=48000 channels=1"));
    void setDefaultMicrophone(const QString& name);
    void suspendMicrophone(const QString& name, bool suspended);
    /// Starts to play into what @p microphone hears, or from the loudspeaker of that name. @p samples: interleaved.
    [[nodiscard]] std::unique_ptr<ChildProcess> play(const std::vector<float>& samples, int rateHz, int channelCount,
                                                     const QString& name);

    /// Runs pactl against this server; its standard output.
    QString control(const QStringList& arguments);

private:
    void addSource(const QString& name, const QString& sink);
    std::optional<QString> tryControl(const QStringList& arguments);
    [[nodiscard]] QStringList environment() const;

    QTemporaryDir folder_;
    std::unique_ptr<ChildProcess> daemon_;
    int playCount_ = 0;
};

} // namespace vantro::testing
