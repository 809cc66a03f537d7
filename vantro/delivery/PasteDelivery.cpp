#include "vantro/delivery/PasteDelivery.h"

#include "base/Logger.h"
#include "base/PlainText.h"
#include "base/Settings.h"
#include "vantro/delivery/Joint.h"
#include "vantro/delivery/PasteChords.h"

#include <QScopeGuard>

#include <algorithm>
#include <coroutine>
#include <memory>
#include <tuple>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

using Selection = Pasteboard::Selection;

constexpr auto focusLimit = 500ms;
/// Window managers usually return the focus on their own within milliseconds of a window closing.
constexpr auto activateAfter = 100ms;
constexpr auto keyReleaseLimit = 1000ms;
constexpr auto lookAgain = 2ms;
constexpr auto joiningLimit = 60s;

const Logger& logger()
{
    static const Logger instance("PasteDelivery");
    return instance;
}

/// Trimmed, and without characters that a terminal would obey.
QString plain(const QString& text)
{
    return withoutControlCharacters(text).trimmed();
}

} // namespace

/// Resumes when the front window changes, or after 2 ms: the input focus follows the window manager without a signal of
/// its own. Never resumes once the delivery is destroyed.
class PasteDelivery::NextLook
{
public:
    explicit NextLook(PasteDelivery& delivery) : delivery_(delivery) {}

    [[nodiscard]] bool await_ready() const { return false; }
    void await_suspend(std::coroutine_handle<> waiting)
    {
        const auto resume = [waiting, resumed = std::make_shared<bool>(false)] {
            if (!std::exchange(*resumed, true))
                waiting.resume();
        };
        connection_ = QObject::connect(&delivery_.workspace_, &Workspace::frontWindowChanged, &delivery_, resume);
        delivery_.clock_.callAfter(lookAgain, &delivery_, resume);
    }
    void await_resume() { QObject::disconnect(connection_); }

private:
    PasteDelivery& delivery_;
    QMetaObject::Connection connection_;
};

PasteDelivery::PasteDelivery(Pasteboard& pasteboard, KeyEventPoster& keyEvents, Workspace& workspace,
                             const SessionState& session, UserDefaults& defaults, Clock& clock)
    : pasteboard_(pasteboard)
    , keyEvents_(keyEvents)
    , workspace_(workspace)
    , session_(session)
    , defaults_(defaults)
    , clock_(clock)
{
    connect(&workspace_, &Workspace::frontWindowChanged, this, &PasteDelivery::noteFront);
    connect(&session_, &SessionState::returned, this, &PasteDelivery::bringHeld);
    noteFront();
}

void PasteDelivery::noteFront()
{
    const auto front = workspace_.frontWindow();
    if (!front)
        return;
    const bool isOther = !workspace_.isOwn(*front);
    if (isOther || workspace_.takesText(*front))
        lastFront_ = front;
    if (isOther)
        lastOther_ = front;
    if (isOther && latest_ && latest_->window != *front)
        latest_.reset();
}

QStringList PasteDelivery::targetClass() const
{
    return target_.window ? workspace_.windowClass(*target_.window) : QStringList();
}

PasteDelivery::Target PasteDelivery::targetInFront()
{
    noteFront();
    const auto front = workspace_.frontWindow();
    const auto window = front ? lastFront_ : std::nullopt;
    return {window, front != window ? front : std::nullopt};
}

void PasteDelivery::rememberTarget()
{
    target_ = targetInFront();
    if (keepsEveryFormat())
        pasteboard_.fetchContents(Selection::Clipboard);
}

bool PasteDelivery::copy(const QString& text)
{
    const QString copied = plain(text);
    if (copied.isEmpty())
        return false;
    std::ignore = takePending();
    forgetOwed();
    loseHeld();
    leave(copied);
    printToPerson(QStringLiteral("Copied to clipboard: \"%1\"").arg(copied));
    return true;
}

QString PasteDelivery::pasteKeys() const
{
    const bool isThere = lastFront_ && workspace_.windowExists(*lastFront_);
    return chordText(chordOf(isThere ? lastFront_ : workspace_.frontWindow()));
}

KeyEventPoster::PasteChord PasteDelivery::chordOf(std::optional<WindowID> window) const
{
    return pasteChordFor(window ? workspace_.windowClass(*window) : QStringList(), defaults_);
}

/// Puts @p text there until it has been pasted.
void PasteDelivery::show(Selection selection, const QString& text)
{
    if (selection == Selection::Clipboard && defaults_.get(setting::copyToClipboardEnabled))
        pasteboard_.setString(selection, text);
    else
        pasteboard_.setSecret(selection, text);
}

/// Leaves @p text to the user, in both selections: the keys of any window find it.
void PasteDelivery::leave(const QString& text)
{
    for (const auto selection : {Selection::Clipboard, Selection::Primary})
        pasteboard_.setString(selection, text);
}

QCoro::Task<PasteDelivery::Outcome> PasteDelivery::deliver(QString text, Keeping keeping)
{
    if (plain(text).isEmpty())
        co_return Outcome::Nothing;
    const auto delivering = deliverInTurn(std::move(text), std::move(keeping), Turn::last);
    co_return co_await delivering;
}

QCoro::Task<PasteDelivery::Outcome> PasteDelivery::deliverInTurn(QString text, Keeping keeping, Turn turn)
{
    // Two at once would take each other's text for what was on the clipboard.
    while (isDelivering_)
        co_await NextLook(*this);
    isDelivering_ = true;
    const auto over = qScopeGuard([this] { isDelivering_ = false; });
    const auto delivering = deliverNext(std::move(text), std::move(keeping), turn);
    co_return co_await delivering;
}

QCoro::Task<PasteDelivery::Outcome> PasteDelivery::deliverNext(QString text, Keeping keeping, Turn turn)
{
    // A page that has just opened gives its field the focus a moment later.
    if (target_.ownFront && workspace_.takesText(*target_.ownFront))
        target_.window = target_.ownFront;
    const auto target = target_.window;
    const QString dictated = joined(plain(text), target);
    returnToOwed(target);
    if (turn == Turn::last && target && mustWait(*target)) {
        held_.push_back({dictated, *target, std::move(keeping)});
        co_return Outcome::Held;
    }
    printToPerson(QStringLiteral("Copied to clipboard: \"%1\"").arg(dictated));
    if (isPasting() && pending_->target == target) {
        addToPending(dictated, std::move(keeping));
        co_return Outcome::Pasted;
    }
    const QString waiting = whatOnlyTheClipboardHas();
    Restore former = takeFormer(dictated, waiting);
    former.keeping.push_back(std::move(keeping));
    show(Selection::Clipboard, dictated);

    Outcome outcome = co_await waitForKeyboard(target);
    if (outcome == Outcome::Pasted && isKeyboardBusy()) {
        co_await waitForKeyRelease();
        outcome = co_await waitForKeyboard(target);
    }
    if (outcome == Outcome::Pasted)
        outcome = obstacle().value_or(Outcome::Pasted);
    if (outcome == Outcome::Pasted)
        outcome = paste(dictated, *target, former);
    if (outcome == Outcome::Pasted) {
        tellOfOwed();
    } else {
        forgetOwed();
        loseHeld();
        leaveAfter(waiting, std::move(former));
        logger().error(explanation(outcome));
    }
    co_return outcome;
}

/// Leaves the text of @p paste on the clipboard, behind @p waiting, which must not be lost either.
void PasteDelivery::leaveAfter(const QString& waiting, Restore paste)
{
    const bool isOnlyHere = std::ranges::any_of(paste.keeping, [](const Keeping& keeping) { return !!keeping.lost; });
    const QString left = waiting.isEmpty() ? paste.text : waiting + QStringLiteral("\n\n") + paste.text;
    leave(left);
    onlyHere_ = isOnlyHere || !waiting.isEmpty() ? left : QString();
    isLost_ = !canCopy() && !lose(paste);
    settle(paste);
}

/// A text that is not in the history and that nobody has pasted yet; empty if there is none.
QString PasteDelivery::whatOnlyTheClipboardHas()
{
    const bool comesBack = pending_ && pending_->clipboard && pending_->clipboard->text == onlyHere_;
    const bool isThere = pasteboard_.isOwner(Selection::Clipboard) &&
                         pasteboard_.string(Selection::Clipboard) == onlyHere_ &&
                         !pasteboard_.wasFetched(Selection::Clipboard);
    if (!comesBack && !isThere)
        onlyHere_.clear();
    return onlyHere_;
}

QString PasteDelivery::joined(const QString& text, std::optional<WindowID> target) const
{
    const bool follows = latest_ && latest_->window == target && clock_.now() - latest_->when < joiningLimit;
    if (!follows || !defaults_.get(setting::joinDictations))
        return text;
    return joinedTo(latest_->text, text, defaults_.get(setting::selectedLanguage));
}

/// What to restore after the paste. If there is @p waiting, the clipboard comes back whatever the settings say.
PasteDelivery::Restore PasteDelivery::takeFormer(const QString& dictated, const QString& waiting)
{
    const auto pending = takePending();
    Restore result;
    result.text = dictated;
    if (!waiting.isEmpty() || !defaults_.get(setting::copyToClipboardEnabled))
        result.clipboard = former(Selection::Clipboard, dictated, pending ? pending->clipboard : std::nullopt);
    if (pending)
        result.primary = pending->primary;
    return result;
}

PasteDelivery::Former PasteDelivery::former(Selection selection, const QString& dictated,
                                            const std::optional<Former>& pending) const
{
    const auto present = pasteboard_.string(selection);
    if (pending && present == pending->ours)
        return {dictated, pending->text, pending->isSecret, pending->everything};
    return {dictated, present, present && pasteboard_.isSecret(selection),
            selection == Selection::Clipboard && keepsEveryFormat() ? pasteboard_.contents(selection) : nullptr};
}

bool PasteDelivery::keepsEveryFormat() const
{
    return defaults_.get(setting::restoreEveryFormat) && !defaults_.get(setting::copyToClipboardEnabled);
}

QCoro::Task<PasteDelivery::Outcome> PasteDelivery::waitForKeyboard(std::optional<WindowID> target)
{
    if (!target)
        co_return Outcome::NoTarget;
    const auto begin = clock_.now();
    bool asked = false;
    while (!hasKeyboard(*target) && !session_.isAway()) {
        const auto waited = clock_.now() - begin;
        if (!workspace_.windowExists(*target))
            co_return Outcome::TargetGone;
        if (waited >= activateAfter && hasMovedOn(*target))
            co_return Outcome::MovedOn;
        if (waited >= focusLimit)
            co_return Outcome::FocusNotReturned;
        if (waited >= activateAfter && !std::exchange(asked, true))
            workspace_.activateWindow(*target);
        co_await NextLook(*this);
    }
    co_return Outcome::Pasted;
}

/// Whether another program's window is in front. Taking the keyboard from it would send what the user types there to
/// the wrong window.
bool PasteDelivery::hasMovedOn(WindowID target) const
{
    const auto front = workspace_.frontWindow();
    return front && front != target && !workspace_.isOwn(*front);
}

QCoro::Task<> PasteDelivery::waitForKeyRelease()
{
    const auto begin = clock_.now();
    while (isKeyboardBusy() && !session_.isAway() && clock_.now() - begin < keyReleaseLimit)
        co_await NextLook(*this);
}

bool PasteDelivery::isKeyboardBusy() const
{
    return keyEvents_.isOrdinaryKeyDown() || keyEvents_.isKeyboardTaken();
}

/// What forbids a keystroke now: a locked screen takes it, although the window stays in front.
std::optional<PasteDelivery::Outcome> PasteDelivery::obstacle() const
{
    if (session_.isAway())
        return Outcome::UserAway;
    if (keyEvents_.isKeyboardTaken())
        return Outcome::KeyboardTaken;
    return std::nullopt;
}

bool PasteDelivery::hasKeyboard(WindowID window) const
{
    return workspace_.frontWindow() == window && workspace_.hasInputFocus(window);
}

/// Puts the text there once more if something else was copied while the delivery waited.
void PasteDelivery::showAgain(const QString& dictated, Restore& former)
{
    if (pasteboard_.string(Selection::Clipboard) == dictated)
        return;
    if (former.clipboard)
        former.clipboard = this->former(Selection::Clipboard, dictated, std::nullopt);
    show(Selection::Clipboard, dictated);
}

PasteDelivery::Outcome PasteDelivery::paste(const QString& dictated, WindowID target, Restore former)
{
    // The keystroke would paste what somebody else has copied.
    if (!canCopy()) {
        keystrokeError_ = tr("This desktop lets no program copy while you work in another.");
        return Outcome::KeystrokeFailed;
    }
    const auto chord = chordOf(target);
    former.isByPrimary = chord == KeyEventPoster::PasteChord::ShiftInsert;
    showAgain(dictated, former);
    if (former.isByPrimary) {
        former.primary = this->former(Selection::Primary, dictated, former.primary);
        show(Selection::Primary, dictated);
    }
    printLine(QStringLiteral("Attempting to paste..."));
    try {
        keyEvents_.postPaste(chord);
    } catch (const KeyEventError& error) {
        keystrokeError_ = error.localizedDescription();
        return Outcome::KeystrokeFailed;
    }
    former.isAskable = workspace_.ping(target);
    former.target = target;
    former.pastedAt = clock_.now();
    latest_ = Latest{target, dictated, clock_.now()};
    pending_ = std::move(former);
    followPending();
    return Outcome::Pasted;
}

} // namespace vantro
