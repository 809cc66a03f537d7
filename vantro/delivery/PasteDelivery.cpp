#include "vantro/delivery/PasteDelivery.h"

#include "base/Logger.h"
#include "base/Settings.h"
#include "platform/Wording.h"
#include "vantro/delivery/PasteChords.h"

#include <QCoreApplication>

#include <coroutine>
#include <memory>
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

QString tr(const char* text)
{
    return QCoreApplication::translate("PasteDelivery", text);
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
        connection_ =
            QObject::connect(&delivery_.workspace_, &Workspace::frontWindowChanged, &delivery_.context_, resume);
        delivery_.clock_.callAfter(lookAgain, &delivery_.context_, resume);
    }
    void await_resume() { QObject::disconnect(connection_); }

private:
    PasteDelivery& delivery_;
    QMetaObject::Connection connection_;
};

PasteDelivery::PasteDelivery(Pasteboard& pasteboard, KeyEventPoster& keyEvents, Workspace& workspace,
                             UserDefaults& defaults, Clock& clock)
    : pasteboard_(pasteboard)
    , keyEvents_(keyEvents)
    , workspace_(workspace)
    , defaults_(defaults)
    , clock_(clock)
{
}

void PasteDelivery::rememberTarget()
{
    target_ = workspace_.frontWindow();
}

bool PasteDelivery::copy(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return false;
    pasteboard_.setString(Selection::Clipboard, trimmed);
    printToPerson(QStringLiteral("Copied to clipboard: \"%1\"").arg(trimmed));
    return true;
}

QCoro::Task<PasteDelivery::Outcome> PasteDelivery::deliver(QString text)
{
    const QString dictated = text.trimmed();
    if (dictated.isEmpty())
        co_return Outcome::Nothing;
    const auto target = target_;
    Restore former = takeFormer(dictated);
    copy(dictated);

    Outcome outcome = co_await waitForKeyboard(target);
    if (outcome == Outcome::Pasted && keyEvents_.isOrdinaryKeyDown()) {
        co_await waitForKeyRelease();
        outcome = co_await waitForKeyboard(target);
    }
    if (outcome == Outcome::Pasted)
        outcome = paste(dictated, *target, former);
    if (outcome != Outcome::Pasted) {
        logger().error(explanation(outcome));
        restore(Selection::Primary, former.primary);
    }
    co_return outcome;
}

/// If the previous delivery has not restored the clipboard yet, this one takes over what it would have restored.
PasteDelivery::Restore PasteDelivery::takeFormer(const QString& dictated)
{
    const auto pending = std::exchange(pending_, std::nullopt);
    ++generation_;
    Restore result;
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
    return {dictated, pending && present == pending->ours ? pending->text : present};
}

QCoro::Task<PasteDelivery::Outcome> PasteDelivery::waitForKeyboard(std::optional<WindowID> target)
{
    if (!target)
        co_return Outcome::NoTarget;
    const auto begin = clock_.now();
    bool asked = false;
    while (!hasKeyboard(*target)) {
        const auto waited = clock_.now() - begin;
        if (!workspace_.windowExists(*target))
            co_return Outcome::TargetGone;
        if (waited >= focusLimit)
            co_return Outcome::FocusNotReturned;
        if (waited >= activateAfter && !std::exchange(asked, true))
            workspace_.activateWindow(*target);
        co_await NextLook(*this);
    }
    co_return Outcome::Pasted;
}

QCoro::Task<> PasteDelivery::waitForKeyRelease()
{
    const auto begin = clock_.now();
    while (keyEvents_.isOrdinaryKeyDown() && clock_.now() - begin < keyReleaseLimit)
        co_await NextLook(*this);
}

bool PasteDelivery::hasKeyboard(WindowID window) const
{
    return workspace_.frontWindow() == window && workspace_.hasInputFocus(window);
}

PasteDelivery::Outcome PasteDelivery::paste(const QString& dictated, WindowID target, Restore former)
{
    const auto chord = pasteChordFor(workspace_.windowClass(target), defaults_);
    if (chord == KeyEventPoster::PasteChord::ShiftInsert) {
        former.primary = this->former(Selection::Primary, dictated, former.primary);
        former.pasted = Selection::Primary;
        pasteboard_.setString(Selection::Primary, dictated);
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
    clock_.callAfter(delay, &context_, [this, generation = generation_] {
        if (generation == generation_)
            restoreWhenFetched();
    });
}

void PasteDelivery::restoreWhenFetched()
{
    if (!pending_)
        return;
    const bool fetched = pasteboard_.wasFetchedBy(pending_->pasted, pending_->target);
    if (!fetched && clock_.now() - pending_->pastedAt < fetchLimit) {
        scheduleRestore(fetchPoll);
        return;
    }
    restoreNow();
}

void PasteDelivery::restoreNow()
{
    const auto former = std::exchange(pending_, std::nullopt);
    if (!former)
        return;
    restore(Selection::Clipboard, former->clipboard);
    restore(Selection::Primary, former->primary);
}

void PasteDelivery::restore(Selection selection, const std::optional<Former>& former)
{
    // Leave anything that was copied in the meantime.
    if (!former || pasteboard_.string(selection) != former->ours)
        return;
    printLine(QStringLiteral("Restoring state"));
    // Not cleared first: some clipboard managers fill an empty clipboard with its previous text.
    if (former->text) {
        printLine(QStringLiteral("Setting the old content"));
        pasteboard_.setString(selection, *former->text);
    } else {
        pasteboard_.clear(selection);
    }
}

QString PasteDelivery::explanation(Outcome outcome) const
{
    const QString onClipboard = tr("The text is on the clipboard: paste it with %1.").arg(wording::pasteShortcut());
    switch (outcome) {
    case Outcome::Pasted:
    case Outcome::Nothing:
        return {};
    case Outcome::NoTarget:
        return tr("No window was active when the dictation began. ") + onClipboard;
    case Outcome::TargetGone:
        return tr("The window you were working in has been closed. ") + onClipboard;
    case Outcome::FocusNotReturned:
        return tr("The window you were working in did not become active again. ") + onClipboard;
    case Outcome::KeystrokeFailed:
        return keystrokeError_ + QLatin1Char(' ') + onClipboard;
    }
    return {};
}

} // namespace vantro
