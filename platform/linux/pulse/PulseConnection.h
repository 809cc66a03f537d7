#pragma once

#include "base/Logger.h"
#include "base/ThreadWaker.h"
#include "platform/linux/pulse/PulseServerWatch.h"
#include "platform/linux/pulse/PulseSnapshot.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>

namespace vantro {

class PulseLoop;

/// The program's single connection to the sound server (PulseAudio or PipeWire), shared by the device list and all
/// engines, which it must outlive. Connects on construction, caches the available sources, and reconnects when the
/// server returns. Purely event-driven. Main thread only.
class PulseConnection : public QObject
{
    Q_OBJECT
public:
    /// @p server: an address as in PULSE_SERVER; by default, the user's configuration.
    explicit PulseConnection(std::optional<QString> server = {});
    ~PulseConnection() override;

    /// Whether a server answers. While connecting, blocks until one second after the attempt began; after a failure,
    /// makes a new attempt. The snapshot is current on return; updated() follows from the event loop.
    [[nodiscard]] bool serverAnswers();

    [[nodiscard]] const PulseSnapshot& snapshot() const { return snapshot_; }

    /// For this folder only: the thread that runs the streams.
    [[nodiscard]] PulseLoop& loop() { return *loop_; }

Q_SIGNALS:
    /// The snapshot was replaced, possibly by an equal one, or a stream has an incident.
    void updated();

private:
    void attempt();
    void attemptLater();
    void takeSnapshot();
    void assignIds(PulseSnapshot& snapshot);

    Logger logger_{"PulseConnection"};
    QString server_;
    PulseSnapshot snapshot_;
    QHash<QString, AudioDeviceID> ids_;
    QSet<AudioDeviceID> usedIds_;

    PulseServerWatch watch_;
    QTimer retry_;
    std::size_t retries_ = 0;
    /// Set from the start of an attempt until it, or the resulting connection, fails.
    bool isAttempting_ = false;
    std::chrono::steady_clock::time_point attemptBegan_;

    ThreadWaker waker_;
    std::unique_ptr<PulseLoop> loop_;
};

} // namespace vantro
