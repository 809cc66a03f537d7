#include "platform/linux/pulse/PulseConnection.h"

#include "platform/linux/pulse/PulseLoop.h"

#include <array>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto answerPatience = 1s;

// A new socket may not accept connections yet, and a restarting server briefly leaves the old one. After these retries,
// only a change in the socket's folder or a call to serverAnswers() tries again.
constexpr std::array retryDelays{10ms, 30ms, 100ms, 300ms, 1000ms, 3000ms};

} // namespace

PulseConnection::PulseConnection(std::optional<QString> server)
    : server_(server.value_or(qEnvironmentVariable("PULSE_SERVER")))
    , watch_(server_)
    , waker_([this] {
        takeSnapshot();
        Q_EMIT updated();
    })
    , loop_(std::make_unique<PulseLoop>([this] { waker_.wake(); }))
{
    retry_.setSingleShot(true);
    connect(&retry_, &QTimer::timeout, this, &PulseConnection::attempt);
    connect(&watch_, &PulseServerWatch::appeared, this, [this] {
        retries_ = 0;
        attemptLater();
    });
    attempt();
}

PulseConnection::~PulseConnection()
{
    // Destroy it before the waker, which its thread calls.
    loop_.reset();
}

void PulseConnection::attempt()
{
    retry_.stop();
    isAttempting_ = true;
    attemptBegan_ = std::chrono::steady_clock::now();
    loop_->connect(server_.isEmpty() ? std::nullopt : std::optional(server_.toStdString()));
}

void PulseConnection::attemptLater()
{
    if (retry_.isActive() || retries_ == retryDelays.size() || !watch_.mayBeThere())
        return;
    retry_.start(retryDelays.at(retries_++));
}

bool PulseConnection::serverAnswers()
{
    using Phase = PulseSnapshot::Phase;
    takeSnapshot();
    if (snapshot_.phase == Phase::Failed)
        attempt();
    if (snapshot_.phase != Phase::Ready && loop_->waitForAnswer(attemptBegan_ + answerPatience))
        takeSnapshot();
    return snapshot_.phase == Phase::Ready;
}

void PulseConnection::takeSnapshot()
{
    using Phase = PulseSnapshot::Phase;
    PulseSnapshot next = loop_->latest();
    assignIds(next);
    if (next.phase != snapshot_.phase && next.phase != Phase::Connecting)
        logger_.debug(next.phase == Phase::Ready ? QStringLiteral("The sound server answers")
                                                 : QStringLiteral("There is no sound server"));
    snapshot_ = std::move(next);
    if (snapshot_.phase == Phase::Ready) {
        retries_ = 0;
        retry_.stop();
        watch_.stop();
    } else if (snapshot_.phase == Phase::Failed && std::exchange(isAttempting_, false)) {
        watch_.start();
        attemptLater();
    }
}

// The server's indexes restart with it, and a device gets a new one when plugged in again.
void PulseConnection::assignIds(PulseSnapshot& snapshot)
{
    for (PulseSource& source : snapshot.sources) {
        auto known = ids_.find(source.name);
        if (known == ids_.end()) {
            AudioDeviceID id = source.index;
            while (usedIds_.contains(id))
                ++id;
            usedIds_.insert(id);
            known = ids_.insert(source.name, id);
        }
        source.id = *known;
    }
}

} // namespace vantro
