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

/// The program's one connection to the sound server (PulseAudio, or PipeWire in its place), shared by the device list
/// and every engine; it outlives them. It begins to connect when it is made, keeps a copy of what there is to record
/// from, and connects again when the server comes back. Nothing runs while nothing happens. Main thread only.
class PulseConnection : public QObject
{
    Q_OBJECT
public:
    /// @p server: an address as in PULSE_SERVER; without one the user's own settings decide.
    explicit PulseConnection(std::optional<QString> server = {});
    ~PulseConnection() override;

    /// Whether there is a server that answers. Right after the program's start, and when the server had gone, waits for
    /// the answer to the running attempt, at most one second after that began. The snapshot is new when this returns;
    /// updated() follows from the event loop.
    [[nodiscard]] bool serverAnswers();

    [[nodiscard]] const PulseSnapshot& snapshot() const { return snapshot_; }

    /// For this folder: what the streams run on.
    [[nodiscard]] PulseLoop& loop() { return *loop_; }

Q_SIGNALS:
    /// The snapshot was renewed, perhaps with the same content, or a stream has something to tell.
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
    /// Since an attempt began, until it or the connection it led to has failed.
    bool isAttempting_ = false;
    std::chrono::steady_clock::time_point attemptBegan_;

    ThreadWaker waker_;
    std::unique_ptr<PulseLoop> loop_;
};

} // namespace vantro
