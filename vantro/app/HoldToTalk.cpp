#include "vantro/app/HoldToTalk.h"

#include "base/Settings.h"

#include <utility>

namespace vantro {

HoldToTalk::HoldToTalk(KeyboardShortcuts& shortcuts, UserDefaults& defaults, Clock& clock, Begin begin)
    : defaults_(defaults)
    , clock_(clock)
    , begin_(std::move(begin))
    , keyDown_(shortcuts.onKeyDown(KeyboardShortcuts::Name::openModal, *this, [this] { pressed(); }))
    , keyUp_(shortcuts.onKeyUp(KeyboardShortcuts::Name::openModal, *this, [this] { released(); }))
{
    connect(&shortcuts, &KeyboardShortcuts::holdEnded, this, [this](const QString& name) {
        if (name == KeyboardShortcuts::Name::openModal.rawValue)
            endHold();
    });
}

void HoldToTalk::pressed()
{
    isHold_ = defaults_.get(setting::holdToTalk);
    if (isHold_)
        held_ = begin_(Dictation::Keyboard::left);
}

void HoldToTalk::released()
{
    if (isHold_)
        endHold();
    else
        begin_(Dictation::Keyboard::taken);
}

void HoldToTalk::endHold()
{
    isHold_ = false;
    const auto dictation = std::exchange(held_, {}).lock();
    if (!dictation)
        return;
    if (clock_.now() - *dictation->timings().shortcut < shortestHold)
        dictation->discardRecording();
    else
        dictation->stop();
}

} // namespace vantro
