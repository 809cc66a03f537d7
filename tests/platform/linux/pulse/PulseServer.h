#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <vector>

namespace vantro::testing {

/// A sound server of the test's own, without hardware. A microphone is a null sink, into which the test plays, with a
/// remapped source on its monitor, which does not look like a monitor.
class PulseServer
{
public:
    PulseServer();
    ~PulseServer();

    /// Null when the server's programs are installed; otherwise the reason for a skip.
    static const char* reasonToSkip();

    /// What PULSE_SERVER would be; valid before the server runs.
    [[nodiscard]] QString address() const;
    void start();
    /// The way a crash ends it.
    void kill();
    void freeze();
    void thaw();
    [[nodiscard]] bool isRunning() const;

    /// @p format: "rate=48000 channels=2", say.
    void addMicrophone(const QString& name, const QString& format = QStringLiteral("rate=48000 channels=1"));
    void removeMicrophone(const QString& name);
    /// Makes a sink with a monitor and no microphone.
    void addLoudspeaker(const QString& name, const QString& format = QStringLiteral("rate=48000 channels=1"));
    void setDefaultMicrophone(const QString& name);
    /// Whether @p name may deliver sound.
    void suspendMicrophone(const QString& name, bool suspended);
    /// A second source that hears exactly what @p microphone hears.
    void addTwin(const QString& name, const QString& microphone);
    /// Starts to play into what @p microphone hears and returns at once. @p samples:
    /// interleaved.
    [[nodiscard]] std::unique_ptr<QProcess> play(const std::vector<float>& samples, int rateHz, int channelCount,
                                                 const QString& microphone);

    /// Runs pactl against this server; its standard output.
    QString control(const QStringList& arguments);

private:
    void addSource(const QString& name, const QString& sink);
    std::optional<QString> tryControl(const QStringList& arguments);

    QTemporaryDir folder_;
    int playCount_ = 0;
    QProcess daemon_;
};

} // namespace vantro::testing
