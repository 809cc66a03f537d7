#include "vantro/app/HoldToTalk.h"

#include "base/Settings.h"
#include "vantro/audio/AudioRecorder.h"

#include <utility>

namespace vantro {

HoldToTalk::HoldToTalk(KeyboardShortcuts& shortcuts, AudioRecorder& recorder, UserDefaults& defaults, Clock& clock,
                       Actions actions)
    : recorder_(recorder)
    , defaults_(defaults)
    , clock_(clock)
    , actions_(std::move(actions))
    , keyDown_(shortcuts.onKeyDown(KeyboardShortcuts::Name::openModal, *this, [this] { pressed(); }))
    , keyUp_(shortcuts.onKeyUp(KeyboardShortcuts::Name::openModal, *this, [this] { released(); }))
{
    connect(&shortcuts, &KeyboardShortcuts::holdEnded, this, [this](const QString& name) {
        if (name == KeyboardShortcuts::Name::openModal.rawValue)
            endHold();
    });
    connect(&recorder_, &AudioRecorder::isRecordingChanged, this, [this] {
        if (!recorder_.isRecording())
            heldSince_.reset();
    });
}

void HoldToTalk::pressed()
{
    isHold_ = defaults_.get(setting::holdToTalk);
    if (!isHold_ || recorder_.isBusy())
        return;
    const Clock::Instant now = clock_.now();
    actions_.openAside();
    if (recorder_.isRecording())
        heldSince_ = now;
}

void HoldToTalk::released()
{
    if (isHold_)
        endHold();
    else
        actions_.open();
}

void HoldToTalk::endHold()
{
    isHold_ = false;
    const auto since = std::exchange(heldSince_, std::nullopt);
    if (!since)
        return;
    if (clock_.now() - *since < shortestHold)
        actions_.cancel();
    else
        actions_.stop();
}

} // namespace vantro
