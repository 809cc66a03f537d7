#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <chrono>
#include <memory>

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
    void addLoudspeaker(const QString& name);
    void setDefaultMicrophone(const QString& name);
    /// Whether @p name may deliver sound.
    void suspendMicrophone(const QString& name, bool suspended);
    /// Starts to play a WAV file into the microphone and returns at once.
    [[nodiscard]] std::unique_ptr<QProcess> play(const QString& path, const QString& microphone);

    /// Runs pactl against this server; its standard output.
    QString control(const QStringList& arguments);

private:
    QTemporaryDir folder_;
    QProcess daemon_;
};

} // namespace vantro::testing
