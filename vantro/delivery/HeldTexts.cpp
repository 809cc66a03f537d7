// The part of PasteDelivery that holds a text until another window of its program has answered.
#include "vantro/delivery/PasteDelivery.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace vantro {

void PasteDelivery::hold(Held held)
{
    held_.push_back(std::move(held));
    Q_EMIT notFetched(
        tr("That program has not taken the text before this one yet. This text follows when it responds."));
}

/// A keystroke before its own is not answered yet, or just now.
bool PasteDelivery::isHeldBack(WindowID window)
{
    const bool isOwed =
        std::ranges::any_of(owed_, [&](const Restore& paste) { return isProgramOf(paste, window) && willTake(paste); });
    return isOwed || (pending_ && isProgramOf(*pending_, window) && (isFetched(*pending_) || isPasting()));
}

/// To a user who still waits there. Of one who works elsewhere the keyboard stays there.
void PasteDelivery::bringHeld()
{
    while (!isDelivering_) {
        const auto isReady = [this](const Held& held) {
            return !isHeldBack(held.window);
        };
        auto found = std::ranges::find_if(
            held_, [&](const Held& held) { return hasKeyboard(held.window) && !session_.isAway() && isReady(held); });
        const bool isThere = found != held_.end();
        if (!isThere)
            found = std::ranges::find_if(held_, isReady);
        if (found == held_.end() || (!isThere && isPasting()))
            return; // the window that is to answer would take the text for its own
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

/// The window has the keyboard.
QCoro::Task<> PasteDelivery::bring(Held held)
{
    const Target present = std::exchange(target_, Target{held.window, std::nullopt});
    const auto delivering = deliver(held.text, std::move(held.keeping));
    target_ = present;
    const QString reason = explanation(co_await delivering);
    if (!reason.isEmpty())
        Q_EMIT notFetched(reason);
}

/// The clipboard is somebody else's now, whatever the keystroke before theirs brings.
void PasteDelivery::loseHeld()
{
    for (Held& held : std::exchange(held_, {})) {
        Restore lost;
        lost.keeping.push_back(std::move(held.keeping));
        tellOfForgotten(lost);
    }
}

} // namespace vantro
