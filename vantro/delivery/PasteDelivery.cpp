#include "vantro/delivery/PasteDelivery.h"

#include "base/Logger.h"
#include "base/PlainText.h"
#include "base/Settings.h"
#include "vantro/delivery/PasteChords.h"

#include <coroutine>
#include <memory>
#include <tuple>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

using Selection = Pasteboard::Selection;

constexpr auto restoreDelay = 300ms;
constexpr auto fetchLimit = 2000ms;
constexpr auto fetchPoll = 50ms;
constexpr auto focusLimit = 500ms;
/// Window managers usually return the focus on their own within milliseconds of a window closing.
constexpr auto activateAfter = 100ms;
constexpr auto keyReleaseLimit = 1000ms;
constexpr auto lookAgain = 2ms;

const Logger& logger()
{
    static const Logger instance("PasteDelivery");
    return instance;
}

/// Without what surrounds it, and without what a terminal would obey.
QString plain(const QString& text)
{
    return withoutControlCharacters(text).trimmed();
}

QString onClipboard()
{
    return PasteDelivery::tr("The text is on the clipboard.");
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
    noteFront();
}

void PasteDelivery::noteFront()
{
    if (const auto front = workspace_.frontWindow();
        front && (!workspace_.isOwn(*front) || workspace_.takesText(*front)))
        lastFront_ = front;
}

void PasteDelivery::rememberTarget()
{
    noteFront();
    const auto front = workspace_.frontWindow();
    target_.window = front ? lastFront_ : std::nullopt;
    target_.ownFront = front != target_.window ? front : std::nullopt;
    if (keepsEveryFormat())
        pasteboard_.fetchContents(Selection::Clipboard);
}

bool PasteDelivery::copy(const QString& text)
{
    const QString copied = plain(text);
    if (copied.isEmpty())
        return false;
    std::ignore = takePending();
    leave(copied, target_.window);
    printToPerson(QStringLiteral("Copied to clipboard: \"%1\"").arg(copied));
    return true;
}

QString PasteDelivery::pasteKeys() const
{
    const auto target = target_.window;
    const bool isThere = target && workspace_.windowExists(*target);
    return chordText(chordOf(isThere ? target : workspace_.frontWindow()));
}

KeyEventPoster::PasteChord PasteDelivery::chordOf(std::optional<WindowID> window) const
{
    return pasteChordFor(window ? workspace_.windowClass(*window) : QStringList(), defaults_);
}

/// For the moment that a paste takes.
void PasteDelivery::show(Selection selection, const QString& text)
{
    if (selection == Selection::Clipboard && defaults_.get(setting::copyToClipboardEnabled))
        pasteboard_.setString(selection, text);
    else
        pasteboard_.setSecret(selection, text);
}

/// For good, wherever the keys that the user is told of find it.
void PasteDelivery::leave(const QString& text, std::optional<WindowID> target)
{
    pasteboard_.setString(Selection::Clipboard, text);
    if (chordOf(target) == KeyEventPoster::PasteChord::ShiftInsert)
        pasteboard_.setString(Selection::Primary, text);
}

QCoro::Task<PasteDelivery::Outcome> PasteDelivery::deliver(QString text)
{
    const QString dictated = plain(text);
    if (dictated.isEmpty())
        co_return Outcome::Nothing;
    // A page that has just opened gives its field the focus a moment later.
    if (target_.ownFront && workspace_.takesText(*target_.ownFront))
        target_.window = target_.ownFront;
    const auto target = target_.window;
    printToPerson(QStringLiteral("Copied to clipboard: \"%1\"").arg(dictated));
    if (isPasting(target)) {
        addToPending(dictated);
        co_return Outcome::Pasted;
    }
    Restore former = takeFormer(dictated);
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
    if (outcome != Outcome::Pasted) {
        logger().error(explanation(outcome));
        restore(Selection::Primary, former.primary);
        leave(dictated, target);
    }
    co_return outcome;
}

/// What the previous delivery would still have restored.
std::optional<PasteDelivery::Restore> PasteDelivery::takePending()
{
    const auto pending = std::exchange(pending_, std::nullopt);
    ++generation_;
    if (pending && !isFetched(*pending))
        Q_EMIT notFetched({}, tr("A window has not taken the text before this one. That text is in the history."));
    return pending;
}

PasteDelivery::Restore PasteDelivery::takeFormer(const QString& dictated)
{
    const auto pending = takePending();
    Restore result;
    result.text = dictated;
    if (!defaults_.get(setting::copyToClipboardEnabled))
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

bool PasteDelivery::isFetched(const Restore& paste) const
{
    return pasteboard_.wasFetchedBy(Selection::Clipboard, paste.target) ||
           (paste.primary && pasteboard_.wasFetchedBy(Selection::Primary, paste.target));
}

bool PasteDelivery::isPasting(std::optional<WindowID> target) const
{
    return pending_ && pending_->target == target && !isFetched(*pending_) &&
           pasteboard_.string(Selection::Clipboard) == pending_->text;
}

void PasteDelivery::addToPending(const QString& dictated)
{
    Restore& paste = *pending_;
    paste.text += QLatin1Char(' ') + dictated;
    paste.pastedAt = clock_.now();
    show(Selection::Clipboard, paste.text);
    if (paste.clipboard)
        paste.clipboard->ours = paste.text;
    if (paste.primary) {
        show(Selection::Primary, paste.text);
        paste.primary->ours = paste.text;
    }
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

/// Another program's window is in front: to take the keyboard from it would type into the wrong one what its user
/// types.
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

/// A locked screen leaves the window in front where it is and takes the keystrokes.
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

PasteDelivery::Outcome PasteDelivery::paste(const QString& dictated, WindowID target, Restore former)
{
    const auto chord = chordOf(target);
    if (chord == KeyEventPoster::PasteChord::ShiftInsert) {
        former.primary = this->former(Selection::Primary, dictated, former.primary);
        show(Selection::Primary, dictated);
    }
    printLine(QStringLiteral("Attempting to paste..."));
    try {
        keyEvents_.postPaste(chord);
    } catch (const KeyEventError& error) {
        keystrokeError_ = error.localizedDescription();
        restore(Selection::Primary, former.primary);
        return Outcome::KeystrokeFailed;
    }
    former.target = target;
    former.pastedAt = clock_.now();
    pending_ = std::move(former);
    scheduleRestore(restoreDelay);
    return Outcome::Pasted;
}

void PasteDelivery::scheduleRestore(std::chrono::milliseconds delay)
{
    clock_.callAfter(delay, this, [this, generation = generation_] {
        if (generation == generation_)
            restoreWhenFetched();
    });
}

void PasteDelivery::restoreWhenFetched()
{
    if (!pending_)
        return;
    if (!isFetched(*pending_) && clock_.now() - pending_->pastedAt < fetchLimit)
        scheduleRestore(fetchPoll);
    else
        restoreNow();
}

void PasteDelivery::restoreNow()
{
    const auto paste = std::exchange(pending_, std::nullopt);
    if (!paste)
        return;
    const bool isThere = pasteboard_.string(Selection::Clipboard) == paste->text;
    // A clipboard manager that has taken the text over does not tell who fetches it.
    if (isFetched(*paste) || (isThere && !pasteboard_.isOwner(Selection::Clipboard)))
        restore(*paste);
    else
        tellOfUnfetched(*paste, isThere);
}

/// Whoever pastes later, when the window is no longer busy, must find this text and not the former one.
void PasteDelivery::tellOfUnfetched(const Restore& paste, bool isThere)
{
    if (isThere)
        leave(paste.text, paste.target);
    else
        restore(Selection::Primary, paste.primary);
    const QString reason = tr("The window you were working in has not taken the text.") + QLatin1Char(' ') +
                           (isThere ? onClipboard() : tr("The text is in the history."));
    logger().error(reason);
    Q_EMIT notFetched(isThere ? chordText(chordOf(paste.target)) : QString(), reason);
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
        pasteboard_.clear(selection);
    }
}

QString PasteDelivery::explanation(Outcome outcome) const
{
    switch (outcome) {
    case Outcome::Pasted:
    case Outcome::Nothing:
        return {};
    case Outcome::NoTarget:
        return tr("No window was active when the dictation began.") + QLatin1Char(' ') + onClipboard();
    case Outcome::TargetGone:
        return tr("The window you were working in has been closed.") + QLatin1Char(' ') + onClipboard();
    case Outcome::MovedOn:
        return tr("You have moved on to another window.") + QLatin1Char(' ') + onClipboard();
    case Outcome::FocusNotReturned:
        return tr("The window you were working in did not become active again.") + QLatin1Char(' ') + onClipboard();
    case Outcome::UserAway:
        return tr("You were away when the text was ready.") + QLatin1Char(' ') + onClipboard();
    case Outcome::KeyboardTaken:
        return tr("A menu or a locked screen had the keyboard to itself.") + QLatin1Char(' ') + onClipboard();
    case Outcome::KeystrokeFailed:
        return keystrokeError_ + QLatin1Char(' ') + onClipboard();
    }
    return {};
}

} // namespace vantro
