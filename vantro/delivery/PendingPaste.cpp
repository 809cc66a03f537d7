// The part of PasteDelivery that follows a paste until its window has fetched the text.
#include "base/Logger.h"
#include "vantro/delivery/PasteDelivery.h"

#include <algorithm>
#include <tuple>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

using Selection = Pasteboard::Selection;

constexpr auto restoreDelay = 300ms;
constexpr auto fetchLimit = 2000ms;
constexpr std::chrono::milliseconds fetchPoll = 50ms;
/// Once the user has been told.
constexpr std::chrono::milliseconds lateFetchPoll = 500ms;

} // namespace

/// Ends the previous paste and returns what it would still have restored. A window that will fetch its text later is
/// owed it.
std::optional<PasteDelivery::Restore> PasteDelivery::takePending()
{
    auto pending = std::exchange(pending_, std::nullopt);
    ++generation_;
    if (!pending)
        return pending;
    if (isFetched(*pending)) {
        settle(*pending);
    } else if (isOurs(*pending) && willTake(*pending) && pending->target != target_.window) {
        owed_.push_back(*pending);
        pending->keeping.clear();
    } else {
        tellOfForgotten(*pending);
    }
    return pending;
}

void PasteDelivery::tellOfForgotten(Restore& paste)
{
    Q_EMIT notFetched(tr("A window has not taken the text before this one.") + QLatin1Char(' ') +
                      whereIsLost(lose(paste)));
}

/// Makes what @p target's program is owed the pending paste again: the next text for that window joins it, one for
/// another window of the program waits for it.
void PasteDelivery::returnToOwed(std::optional<WindowID> target)
{
    const auto found = std::ranges::find_if(owed_, [&](const Restore& paste) { return isProgramOf(paste, target); });
    if (found == owed_.end())
        return;
    Restore owed = std::move(*found);
    owed_.erase(found);
    std::ignore = takePending();
    pending_ = std::move(owed);
    leaveForNow(*pending_);
    lookAfter(lateFetchPoll);
}

void PasteDelivery::tellOfOwed()
{
    for (Restore& paste : owed_) {
        if (!std::exchange(paste.isTold, true))
            Q_EMIT notFetched(tr("A window has not taken the text before this one yet. It appears when the window "
                                 "responds."));
    }
}

/// Another text stays on the clipboard, so what is owed will not be fetched.
void PasteDelivery::forgetOwed()
{
    for (Restore& paste : std::exchange(owed_, {}))
        tellOfForgotten(paste);
}

bool PasteDelivery::isFetched(Restore& paste) const
{
    paste.isFetched = paste.isFetched || pasteboard_.wasFetchedBy(Selection::Clipboard, paste.target) ||
                      (paste.primary && pasteboard_.wasFetchedBy(Selection::Primary, paste.target));
    return paste.isFetched;
}

/// Whether a window still has a keystroke to answer, and will find our text then. A window that cannot be asked counts
/// only until the user has been told: a user who dictates into it again knows that it works.
bool PasteDelivery::isPasting()
{
    return pending_ && !isFetched(*pending_) && isOurs(*pending_) && willTake(*pending_) &&
           (pending_->isAskable || !pending_->isTold);
}

bool PasteDelivery::isProgramOf(const Restore& paste, std::optional<WindowID> window) const
{
    return window && (paste.target == window || pasteboard_.isSameProgram(paste.target, *window));
}

/// A window that has had its time and goes on without the text had no use for the keystroke.
bool PasteDelivery::willTake(const Restore& paste) const
{
    return workspace_.windowExists(paste.target) && !(paste.isTold && workspace_.hasAnswered(paste.target));
}

bool PasteDelivery::isOurs(const Restore& paste) const
{
    const auto selection = paste.isByPrimary ? Selection::Primary : Selection::Clipboard;
    return pasteboard_.isOwner(selection) && pasteboard_.string(selection) == paste.text;
}

void PasteDelivery::addToPending(const QString& dictated, Keeping keeping)
{
    Restore& paste = *pending_;
    paste.text += QLatin1Char(' ') + dictated;
    paste.pastedAt = clock_.now();
    paste.isTold = false;
    paste.keeping.push_back(std::move(keeping));
    show(Selection::Clipboard, paste.text);
    if (paste.clipboard)
        paste.clipboard->ours = paste.text;
    if (paste.primary) {
        show(Selection::Primary, paste.text);
        paste.primary->ours = paste.text;
    }
    followPending();
}

void PasteDelivery::followPending()
{
    lookAfter(fetchPoll);
}

/// Replaces any look that is due.
void PasteDelivery::lookAfter(std::chrono::milliseconds delay)
{
    clock_.callAfter(delay, this, [this, generation = ++generation_] {
        if (generation == generation_ && pending_)
            look();
    });
}

void PasteDelivery::look()
{
    if (isFetched(*pending_))
        restoreInTime();
    else if (pending_->isTold)
        lookForLateFetch();
    else if (clock_.now() - pending_->pastedAt < fetchLimit)
        lookAfter(fetchPoll);
    else
        tellOfUnfetched();
}

void PasteDelivery::restoreInTime()
{
    settle(*pending_);
    // A user who has been told may have pressed the keys as well: they must not find the former text.
    if (std::exchange(pending_->isTold, false))
        pending_->pastedAt = clock_.now();
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(pending_->pastedAt + restoreDelay - clock_.now());
    if (left > 0ms)
        lookAfter(std::min(left, fetchPoll));
    else
        finish(*std::exchange(pending_, std::nullopt));
}

void PasteDelivery::finish(const Restore& paste)
{
    while (!owed_.empty() && isOurs(paste)) {
        Restore owed = std::move(owed_.back());
        owed_.pop_back();
        if (!workspace_.windowExists(owed.target)) {
            tellOfForgotten(owed);
            continue;
        }
        restore(Selection::Primary, paste.primary);
        if (!owed.clipboard)
            owed.clipboard = Former{owed.text, paste.text, false, nullptr};
        pending_ = std::move(owed);
        leaveForNow(*pending_);
        lookAfter(lateFetchPoll);
        bringHeld();
        return;
    }
    forgetOwed();
    restore(paste);
    bringHeld();
}

void PasteDelivery::lookForLateFetch()
{
    if (workspace_.windowExists(pending_->target) && isOurs(*pending_)) {
        lookAfter(lateFetchPoll);
        bringHeld();
        return;
    }
    if (isOurs(*pending_)) { // and its window is closed
        const QString waiting = whatOnlyTheClipboardHas();
        leaveAfter(waiting, *std::exchange(pending_, std::nullopt));
        forgetOwed();
        bringHeld();
        return;
    }
    if (std::ranges::all_of(pending_->keeping, [](const Keeping& keeping) { return !keeping.lost; }))
        settle(*pending_);
    else
        Q_EMIT notFetched(tr("What was copied has taken the place of the text that waited there.") + QLatin1Char(' ') +
                          whereIsLost(lose(*pending_)));
    pending_.reset();
    forgetOwed();
    loseHeld();
}

void PasteDelivery::restoreNow()
{
    auto paste = std::exchange(pending_, std::nullopt);
    if (!paste)
        return;
    if (isFetched(*paste)) {
        settle(*paste);
        restore(*paste);
    } else if (!paste->isTold && isOurs(*paste)) {
        leave(paste->text);
    }
}

/// Whoever pastes later, when the window is no longer busy, must find this text and not the former one.
void PasteDelivery::tellOfUnfetched()
{
    Restore& paste = *pending_;
    const bool isThere = pasteboard_.string(Selection::Clipboard) == paste.text;
    const bool isFollowed = isThere && pasteboard_.isOwner(Selection::Clipboard);
    const QString reason = isThere ? reasonOfUnfetched(paste, isFollowed)
                                   : tr("The window you were working in has not taken the text.") + QLatin1Char(' ') +
                                         whereIsLost(lose(paste));
    if (isThere)
        leaveForNow(paste);
    else
        restore(Selection::Primary, paste.primary);
    if (isFollowed) {
        paste.isTold = true;
        lookAfter(lateFetchPoll);
    } else {
        settle(paste);
        pending_.reset();
        forgetOwed();
        loseHeld();
    }
    Logger("PasteDelivery").error(reason + QLatin1Char(' ') + situation());
    Q_EMIT notFetched(reason);
}

/// What of the desktop may explain it, for the log.
QString PasteDelivery::situation() const
{
    const auto front = workspace_.frontWindow();
    const WindowID target = pending_ ? pending_->target : WindowID{};
    return QStringLiteral("[in front: %1; target exists: %2, has the keyboard: %3; clipboard fetched by anybody: %4]")
        .arg(front ? workspace_.windowClass(*front).join(QLatin1Char('/')) : QStringLiteral("none"))
        .arg(workspace_.windowExists(target))
        .arg(workspace_.hasInputFocus(target))
        .arg(pasteboard_.wasFetched(Selection::Clipboard));
}

/// As leave() does, until the window fetches it.
void PasteDelivery::leaveForNow(Restore& paste)
{
    if (!paste.primary && paste.clipboard)
        paste.primary = former(Selection::Primary, paste.text, std::nullopt);
    leave(paste.text);
}

/// Nothing needs to be kept of the text any more.
void PasteDelivery::settle(Restore& paste)
{
    for (const auto& [settled, lost] : std::exchange(paste.keeping, {})) {
        if (settled)
            settled();
    }
}

/// It is not on the clipboard any more. Returns whether it is in the history.
bool PasteDelivery::lose(Restore& paste)
{
    bool isStored = true;
    for (const auto& [settled, lost] : std::exchange(paste.keeping, {})) {
        isStored = isStored && !lost;
        if (const auto& call = lost ? lost : settled)
            call();
    }
    return isStored;
}

void PasteDelivery::restore(const Restore& former)
{
    restore(Selection::Clipboard, former.clipboard);
    restore(Selection::Primary, former.primary);
}

void PasteDelivery::restore(Selection selection, const std::optional<Former>& former)
{
    // Leave anything that was copied in the meantime.
    if (!former || pasteboard_.string(selection) != former->ours)
        return;
    printLine(QStringLiteral("Restoring state"));
    // Not cleared first: some clipboard managers fill an empty clipboard with its previous text.
    if (former->everything) {
        printLine(QStringLiteral("Setting the old content"));
        pasteboard_.setContents(selection, former->everything);
    } else if (former->text) {
        printLine(QStringLiteral("Setting the old content"));
        if (former->isSecret)
            pasteboard_.setSecret(selection, *former->text);
        else
            pasteboard_.setString(selection, *former->text);
    } else {
        if (selection == Selection::Clipboard)
            Logger("PasteDelivery").info(QStringLiteral("No text was on the clipboard; anything else does not return"));
        pasteboard_.clear(selection);
    }
}

} // namespace vantro
