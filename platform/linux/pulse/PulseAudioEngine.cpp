#include "platform/linux/pulse/PulseAudioEngine.h"

#include "platform/Wording.h"
#include "platform/linux/pulse/PulseCapture.h"
#include "platform/linux/pulse/PulseConnection.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto openPatience = 2s;

// Coalesces bursts of changes into one rebuild; the stream continues meanwhile, so nothing is lost.
constexpr auto settlingTime = 100ms;
constexpr auto incidentPatience = 200ms;

// Used while there is no microphone; start() reports that.
constexpr AudioFormat usualFormat{.sampleRateHz = 48000, .channelCount = 1};

QString couldNotOpen(const PulseSource& source, PulseCapture::Outcome outcome)
{
    const QString text = outcome == PulseCapture::Outcome::Suspended
                             ? QCoreApplication::translate("PulseAudioEngine",
                                                           "\"%1\" is switched off in the sound settings. Switch it on "
                                                           "or choose another under Settings, Microphone.")
                             : QCoreApplication::translate("PulseAudioEngine",
                                                           "The sound server does not let vantro record from \"%1\". "
                                                           "Choose another under Settings, Microphone.");
    return text.arg(source.description);
}

} // namespace

PulseAudioEngine::PulseAudioEngine(PulseConnection& connection) : connection_(connection)
{
    incidentPatience_.setSingleShot(true);
    settling_.setSingleShot(true);
    connect(&incidentPatience_, &QTimer::timeout, this, &PulseAudioEngine::announce);
    connect(&settling_, &QTimer::timeout, this, &PulseAudioEngine::announce);
    connect(&connection_, &PulseConnection::updated, this, &PulseAudioEngine::observe);
}

PulseAudioEngine::~PulseAudioEngine() = default;

void PulseAudioEngine::selectInputDevice(AudioDeviceID device)
{
    const PulseSource* const source = connection_.snapshot().microphone(device);
    if (source == nullptr)
        throw AudioEngineError(wording::noMicrophone());
    selected_ = source->name;
}

std::optional<AudioFormat> PulseAudioEngine::deviceFormat() const
{
    const PulseSource* const source = selected_ ? connection_.snapshot().microphone(*selected_) : nullptr;
    return source != nullptr ? std::optional(source->format) : std::nullopt;
}

AudioFormat PulseAudioEngine::inputFormat() const
{
    const PulseSource* const source = connection_.snapshot().defaultMicrophone();
    return source != nullptr ? source->format : usualFormat;
}

void PulseAudioEngine::installTap(std::size_t blockFrames, AudioFormat format, Tap tap)
{
    capture_ = std::make_unique<PulseCapture>(connection_.loop(), blockFrames, format, std::move(tap));
    tapFormat_ = format;
}

void PulseAudioEngine::removeTap()
{
    if (capture_)
        capture_->removeTap();
}

// Copies, because the snapshot may be replaced meanwhile.
std::vector<PulseSource> PulseAudioEngine::candidates() const
{
    const PulseSnapshot& snapshot = connection_.snapshot();
    std::vector<const PulseSource*> sources = snapshot.microphones();
    const auto prefer = [&](const PulseSource* preferred) {
        if (const auto found = std::ranges::find(sources, preferred); found != sources.end())
            std::rotate(sources.begin(), found, found + 1);
    };
    prefer(snapshot.defaultMicrophone());
    if (selected_)
        prefer(snapshot.microphone(*selected_));
    std::vector<PulseSource> result;
    std::ranges::transform(sources, std::back_inserter(result), [](const auto* source) { return *source; });
    return result;
}

void PulseAudioEngine::start()
{
    if (isRunning_)
        return;
    Q_ASSERT(capture_);
    if (!connection_.serverAnswers())
        throw AudioEngineError(wording::noSoundServer());
    openFirstOf(candidates());
    accepted_ = offer();
    offered_.reset();
    isRunning_ = true;
    if (selected_)
        QMetaObject::invokeMethod(this, &PulseAudioEngine::configurationChanged, Qt::QueuedConnection);
}

void PulseAudioEngine::openFirstOf(const std::vector<PulseSource>& sources)
{
    const auto deadline = std::chrono::steady_clock::now() + openPatience;
    QString reason = wording::noMicrophone();
    for (const PulseSource& source : sources) {
        const auto outcome = capture_->open(source.name.toStdString(), source.format == tapFormat_, deadline);
        switch (outcome) {
        case PulseCapture::Outcome::Running:
            opened_ = source.name;
            logger_.debug(QStringLiteral("Recording from %1").arg(source.name));
            return;
        case PulseCapture::Outcome::NoAnswer:
            throw AudioEngineError(wording::noSoundServer());
        case PulseCapture::Outcome::Refused:
        case PulseCapture::Outcome::Suspended:
            if (&source == &sources.front())
                reason = couldNotOpen(source, outcome);
        }
    }
    throw AudioEngineError(reason);
}

void PulseAudioEngine::stop()
{
    if (!isRunning_)
        return;
    isRunning_ = false;
    awaitedListing_.reset();
    stalledAfter_.reset();
    incidentPatience_.stop();
    settling_.stop();
    capture_->finish();
}

void PulseAudioEngine::reportStall()
{
    if (!isRunning_ || awaitedListing_)
        return;
    // A server that stands still sends neither blocks nor this; a new stream would not come about either.
    const PulseLoop::Lock lock(connection_.loop());
    awaitedListing_ = connection_.loop().requestListing();
    stalledAfter_ = capture_->deliveredBlocks();
}

void PulseAudioEngine::observe()
{
    if (!isRunning_)
        return;
    if (const auto incident = capture_->takeIncident()) {
        awaitedListing_ = incident;
        stalledAfter_.reset();
        incidentPatience_.start(incidentPatience);
    } else if (stalledAfter_ && capture_->deliveredBlocks() != *stalledAfter_) {
        // The blocks were only late, as on a machine that is short of time; a new stream would lose those on their way.
        stalledAfter_.reset();
        awaitedListing_.reset();
    }
    const PulseSnapshot& snapshot = connection_.snapshot();
    if (!awaitedListing_)
        observeOffer();
    else if (snapshot.phase != PulseSnapshot::Phase::Ready || snapshot.listing >= *awaitedListing_)
        announce();
}

// What a new engine would record from now. An engine with a selected device only considers that device.
std::optional<PulseAudioEngine::Offer> PulseAudioEngine::offer() const
{
    const PulseSnapshot& snapshot = connection_.snapshot();
    const PulseSource* const source = selected_ ? snapshot.microphone(opened_) : snapshot.defaultMicrophone();
    return source != nullptr ? std::optional(Offer{.name = source->name, .format = source->format}) : std::nullopt;
}

void PulseAudioEngine::observeOffer()
{
    const auto now = offer();
    if (!now || now == accepted_) {
        offered_.reset();
        settling_.stop();
    } else if (now != offered_) {
        offered_ = now;
        settling_.start(settlingTime);
    }
}

// A slot may destroy this engine.
void PulseAudioEngine::announce()
{
    awaitedListing_.reset();
    stalledAfter_.reset();
    incidentPatience_.stop();
    settling_.stop();
    accepted_ = offer();
    Q_EMIT configurationChanged();
}

} // namespace vantro
