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

/// One recording through the sound server. Its stream is bound to one source: the server would otherwise replace a lost
/// microphone by any other source, even a loudspeaker monitor.
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

    /// Tries the selected device, the default, then all other microphones. Blocks until the stream runs, at most two
    /// seconds.
    void start() override;
    void stop() override;
    [[nodiscard]] bool isRunning() const override { return isRunning_; }
    void reportStall() override;

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
    /// Names, because the server's indexes do not survive its restart.
    std::optional<QString> selected_;
    QString opened_;
    bool isRunning_ = false;

    /// The listing to wait for before announcing an incident, so that slots see the state after it.
    std::optional<std::uint64_t> awaitedListing_;
    std::optional<std::uint64_t> stalledAfter_; ///< of the delivered blocks; while the server is asked about a stall
    QTimer incidentPatience_;
    /// The source in use, and a different one that has to stay unchanged for settlingTime.
    std::optional<Offer> accepted_;
    std::optional<Offer> offered_;
    QTimer settling_;
};

} // namespace vantro
