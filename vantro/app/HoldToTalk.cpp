#include "vantro/app/HoldToTalk.h"

#include "base/Settings.h"
#include "platform/KeyCode.h"

#include <utility>

namespace vantro {

namespace {

constexpr KeyboardShortcuts::Key escape{KeyCode::escape};
const QString escapePrefix = QStringLiteral("cancelHold");

} // namespace

HoldToTalk::HoldToTalk(KeyboardShortcuts& shortcuts, UserDefaults& defaults, Clock& clock, Begin begin)
    : shortcuts_(shortcuts)
    , defaults_(defaults)
    , clock_(clock)
    , begin_(std::move(begin))
    , keyDown_(shortcuts.onKeyDown(KeyboardShortcuts::Name::openModal, *this, [this] { pressed(); }))
    , keyUp_(shortcuts.onKeyUp(KeyboardShortcuts::Name::openModal, *this, [this] { released(); }))
{
    connect(&shortcuts, &KeyboardShortcuts::holdEnded, this, [this](const QString& name) {
        if (name == KeyboardShortcuts::Name::openModal.rawValue)
            endHold();
        else if (name.startsWith(escapePrefix))
            escapeReleased();
    });
    followOtherKeys(shortcuts);
}

HoldToTalk::~HoldToTalk()
{
    // The registrations that go now end the hold.
    shortcuts_.disconnect(this);
}

/// Another program may have grabbed Escape with the shortcut's modifiers, but a held shortcut receives all keys.
void HoldToTalk::followOtherKeys(KeyboardShortcuts& shortcuts)
{
    connect(&shortcuts, &KeyboardShortcuts::otherKeyPressed, this, [this](KeyboardShortcuts::Key key) {
        if (isHold_ && key == escape)
            escapePressed();
    });
    connect(&shortcuts, &KeyboardShortcuts::otherKeyReleased, this, [this](KeyboardShortcuts::Key key) {
        if (isHold_ && key == escape)
            escapeReleased();
    });
}

void HoldToTalk::pressed()
{
    isHold_ = defaults_.get(setting::holdToTalk);
    if (!isHold_)
        return;
    held_ = begin_(Dictation::Keyboard::left);
    if (!held_.expired())
        watchEscape();
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
    if (!isEscapeDown_)
        escape_.clear();
    const auto dictation = std::exchange(held_, {}).lock();
    if (!dictation)
        return;
    if (clock_.now() - *dictation->timings().shortcut < shortestHold)
        dictation->discardRecording();
    else
        dictation->stop();
}

void HoldToTalk::watchEscape()
{
    const auto shortcut = shortcuts_.shortcut(KeyboardShortcuts::Name::openModal);
    const auto held = static_cast<std::uint32_t>(shortcut ? shortcut->carbonModifiers : 0);
    escape_.clear();
    for (std::uint32_t modifiers = held;; modifiers = (modifiers - 1) & held) {
        const KeyboardShortcuts::Name name{escapePrefix + QString::number(modifiers),
                                           KeyboardShortcuts::Shortcut(escape, modifiers)};
        escape_.push_back(shortcuts_.onKeyDown(name, *this, [this] { escapePressed(); }));
        escape_.push_back(shortcuts_.onKeyUp(name, *this, [this] { escapeReleased(); }));
        if (modifiers == 0)
            return;
    }
}

void HoldToTalk::escapePressed()
{
    isEscapeDown_ = true;
    if (const auto dictation = std::exchange(held_, {}).lock())
        dictation->cancelRecording();
}

void HoldToTalk::escapeReleased()
{
    isEscapeDown_ = false;
    if (!isHold_)
        escape_.clear();
}

} // namespace vantro
