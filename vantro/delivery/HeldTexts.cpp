// The part of PasteDelivery that holds a text until another window of its program has answered.
#include "vantro/delivery/PasteDelivery.h"

#include <algorithm>
#include <tuple>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

/// While one of our own windows is in front.
constexpr std::chrono::milliseconds lookForUser = 500ms;

} // namespace

/// Whether @p window has to wait for another window of its program, or for a text of its own that waits already.
bool PasteDelivery::mustWait(WindowID window)
{
    return (isPasting() && pending_->target != window && isProgramOf(*pending_, window)) ||
           std::ranges::any_of(held_, [window](const Held& held) { return held.window == window; });
}

/// Whether an earlier keystroke to its program is unanswered, or was answered only a moment ago.
bool PasteDelivery::isHeldBack(WindowID window)
{
    const bool isOwed =
        std::ranges::any_of(owed_, [&](const Restore& paste) { return isProgramOf(paste, window) && willTake(paste); });
    return isOwed || (pending_ && isProgramOf(*pending_, window) && (isFetched(*pending_) || isPasting()));
}

/// Pastes texts whose turn has come into windows where their user still waits. Others are left on the clipboard: the
/// keyboard stays with a user who works elsewhere. While the user is away, nothing is decided.
void PasteDelivery::bringHeld()
{
    while (!isDelivering_ && !session_.isAway()) {
        const auto front = workspace_.frontWindow();
        const auto isReady = [this](const Held& held) {
            return !isHeldBack(held.window);
        };
        auto found = std::ranges::find_if(held_, [&](const Held& held) {
            const bool isThere = front ? hasKeyboard(held.window) : workspace_.windowExists(held.window);
            return isThere && isReady(held);
        });
        const bool isThere = found != held_.end();
        if (!isThere)
            found = std::ranges::find_if(held_, isReady);
        if (found == held_.end() || (!isThere && isPasting()))
            return; // the window that is to answer would take the text for its own
        if (!isThere && mayComeBackTo(found->window)) {
            lookForHeldLater();
            return;
        }
        Held next = std::move(*found);
        held_.erase(found);
        if (isThere) {
            bring(std::move(next));
            continue;
        }
        const QString waiting = whatOnlyTheClipboardHas();
        std::ignore = takePending();
        forgetOwed();
        Restore left;
        left.text = next.text;
        left.keeping.push_back(std::move(next.keeping));
        leaveAfter(waiting, std::move(left));
        Q_EMIT notFetched(tr("A text for a window you have left or closed since had to wait for its program.") +
                          QLatin1Char(' ') + whereItIs(!isLost_));
    }
}

/// Whether the user may be back in a moment: the launcher or an alert of ours is in front, or the keyboard has not
/// followed yet.
bool PasteDelivery::mayComeBackTo(WindowID window) const
{
    const auto front = workspace_.frontWindow();
    return front && (front == window || workspace_.isOwn(*front)) && workspace_.windowExists(window);
}

void PasteDelivery::lookForHeldLater()
{
    clock_.callAfter(lookForUser, this, [this, look = ++heldLook_] {
        if (look == heldLook_)
            bringHeld();
    });
}

/// Pastes into a window that has the keyboard.
QCoro::Task<> PasteDelivery::bring(Held held)
{
    const Target present = std::exchange(target_, Target{held.window, std::nullopt});
    const auto delivering = deliverInTurn(held.text, std::move(held.keeping), Turn::come);
    target_ = present;
    const QString reason = explanation(co_await delivering);
    if (!reason.isEmpty())
        Q_EMIT notFetched(reason);
}

/// The clipboard is needed for another text, so the held ones will not be pasted.
void PasteDelivery::loseHeld()
{
    for (Held& held : std::exchange(held_, {})) {
        Restore lost;
        lost.keeping.push_back(std::move(held.keeping));
        tellOfForgotten(lost);
    }
}

} // namespace vantro
