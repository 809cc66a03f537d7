#pragma once

#include "base/Logger.h"
#include "platform/AudioEngine.h"

#include <QString>
#include <QTimer>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace vantro {

class PulseCapture;
class PulseConnection;
struct PulseSource;

/// One recording through the sound server. Its stream is bound to one source and is never moved by the server, which
/// would take any other source for a lost microphone, loudspeakers included.
class PulseAudioEngine final : public AudioEngine
{
    Q_OBJECT
public:
    explicit PulseAudioEngine(PulseConnection& connection);
    ~PulseAudioEngine() override;

    void selectInputDevice(AudioDeviceID device) override;
    [[nodiscard]] std::optional<AudioFormat> deviceFormat() const override;
    [[nodiscard]] AudioFormat inputFormat() const override;

    void installTap(std::size_t blockFrames, AudioFormat format, Tap tap) override;
    void removeTap() override;

    /// Tries the selected device, then the default, then every other microphone. Blocks until the stream runs, at most
    /// two seconds.
    void start() override;
    void stop() override;
    [[nodiscard]] bool isRunning() const override { return isRunning_; }

private:
    struct Offer
    {
        QString name;
        AudioFormat format;
        friend bool operator==(const Offer&, const Offer&) = default;
    };

    [[nodiscard]] std::vector<PulseSource> candidates() const;
    void openFirstOf(const std::vector<PulseSource>& sources);
    void observe();
    [[nodiscard]] std::optional<Offer> offer() const;
    void observeOffer();
    void announce();

    Logger logger_{"PulseAudioEngine"};
    PulseConnection& connection_;
    std::unique_ptr<PulseCapture> capture_;
    AudioFormat tapFormat_;
    /// Sources go by their names, which outlive the server's numbers.
    std::optional<QString> selected_;
    QString opened_;
    bool isRunning_ = false;

    /// The listing to wait for before an incident is announced, so that who hears of it sees the world after it.
    std::optional<std::uint64_t> awaitedListing_;
    QTimer incidentPatience_;
    /// What was there when the recording began, and what is there instead, until it has stayed so for a moment.
    std::optional<Offer> accepted_;
    std::optional<Offer> offered_;
    QTimer settling_;
};

} // namespace vantro
