#pragma once

#include "base/Clock.h"
#include "base/UserDefaults.h"
#include "platform/KeyEventPoster.h"
#include "platform/Pasteboard.h"
#include "platform/SessionState.h"
#include "platform/Workspace.h"

#include <QObject>
#include <QString>
#include <qcoro/qcorotask.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantro {

/// Pastes a dictation's text into the window the user was working in. Main thread.
///
/// The keystroke goes to that window or nowhere: if the window is gone, does not get the focus back, or the user works
/// elsewhere by now, the text stays on the clipboard and the outcome says so.
class PasteDelivery final : public QObject
{
    Q_OBJECT
public:
    enum class Outcome {
        Pasted,
        Held, ///< comes once another window of its program has answered
        /// The text was empty; nothing was touched.
        Nothing,
        // For the following ones the text stays on the clipboard.
        NoTarget,
        TargetGone,
        MovedOn, ///< the user works in another window by now
        FocusNotReturned,
        UserAway,
        KeyboardTaken, ///< by a menu, or by a locked screen
        KeystrokeFailed,
    };

    /// Callbacks about the caller's own copy of a text, such as its recording. Either may be empty; at most one is
    /// called, and none if the process ends first.
    struct Keeping
    {
        std::function<void()> settled; ///< not needed any more: the window has fetched the text, or the user has it
        std::function<void()> lost;    ///< the text is nowhere any more; empty if it is in the history
    };

    /// Where a text goes.
    struct Target
    {
        std::optional<WindowID> window;
        std::optional<WindowID> ownFront; ///< one of ours that was in front, without a text field as yet
    };

    /// All references must outlive this object.
    PasteDelivery(Pasteboard& pasteboard, KeyEventPoster& keyEvents, Workspace& workspace, const SessionState& session,
                  UserDefaults& defaults, Clock& clock);

    /// Where a dictation that began now would go: to the window in front, or to the one before if that is one of our
    /// own without a text field.
    [[nodiscard]] Target targetInFront();
    /// Call when a dictation begins, before showing any window: its text will go to targetInFront(). With
    /// "restoreEveryFormat", begins to fetch what the clipboard holds.
    void rememberTarget();
    [[nodiscard]] const Target& target() const { return target_; }
    /// The names of the target's class; see Workspace::windowClass().
    [[nodiscard]] QStringList targetClass() const;
    /// Makes a target that was remembered earlier the present one again; an empty one is no window.
    void returnTo(const Target& target) { target_ = target; }

    /// The window of another program that was in front last; an empty target when there is none.
    [[nodiscard]] Target otherWindow() const { return {lastOther_, std::nullopt}; }

    /// Whether there is a clipboard for a text that is not pasted. Otherwise it is in the history, or its recording is
    /// kept.
    [[nodiscard]] bool canCopy() const { return pasteboard_.isOffered(); }
    /// Where the user finds a text that is not pasted, in a sentence.
    [[nodiscard]] QString whereItIs(bool isStored) const;
    /// Puts @p text, trimmed, where pasteKeys() finds it. Returns false and changes nothing when it is blank.
    bool copy(const QString& text);
    /// What makes the window in front paste, or the one before one of our own, for the user to read.
    [[nodiscard]] QString pasteKeys() const;

    /// Copies @p text, waits until the remembered window has the focus (up to 500 ms) and no key is held down and no
    /// other program has the keyboard to itself (up to 1 s together), then posts the window's paste keystroke, unless
    /// the user is away. Deliveries run one after the other.
    ///
    /// - Unless "copyToClipboardEnabled" is set, the previous clipboard text is restored 0.3 s after the keystroke, or
    ///   later, once the window has fetched the text; not at all if the clipboard has been changed since. After 2 s
    ///   without a fetch, notFetched() is emitted.
    /// - A window that has not answered one keystroke gets no second one: its paste will bring both texts. A text for
    ///   another window of its program is held until the first is answered and no window of our own is in front; if the
    ///   user has moved on by then, it stays on the clipboard.
    /// - What a window is owed comes back to the clipboard when a text for another program has been fetched.
    /// - A text that is not pasted stays on the clipboard. A text that waits there, is kept nowhere else and has not
    ///   been fetched stays in front of it, and comes back after a paste in any case.
    /// - With "joinDictations", a text that soon follows another one in the same window is joined to it.
    [[nodiscard]] QCoro::Task<Outcome> deliver(QString text, Keeping keeping = {});

    /// Ends a pending paste as it stands. For when the process is about to end.
    void restoreNow();

    /// What to tell the user; empty when the outcome needs no explanation.
    [[nodiscard]] QString explanation(Outcome outcome) const;

Q_SIGNALS:
    /// A window that was sent the keystroke has not fetched the text: it is busy, or uses other keys. @p reason tells
    /// the user so, where the text is and what to do.
    void notFetched(const QString& reason);

private:
    class NextLook;
    enum class Turn {
        last, ///< behind those that are held for its window
        come, ///< it was held, and its turn has come
    };

    /// The previous text of a selection, and our text that has replaced it.
    struct Former
    {
        QString ours;
        std::optional<QString> text;
        bool isSecret = false;
        std::shared_ptr<const Pasteboard::Contents> everything; ///< comes back instead of the text, unless null
    };
    struct Latest
    {
        WindowID window{};
        QString text;
        Clock::Instant when;
    };
    struct Restore
    {
        QString text;
        std::optional<Former> clipboard;
        std::optional<Former> primary;
        WindowID target{};
        Clock::Instant pastedAt;
        bool isByPrimary = false; ///< the selection that the keystroke pastes
        bool isAskable = false;   ///< the window can tell whether it goes on
        bool isFetched = false;   ///< once seen it stays so, whatever the clipboard holds by then
        bool isTold = false;      ///< the user knows that it has not been fetched
        std::vector<Keeping> keeping;
    };
    /// A text whose keystroke comes after one that another window of its program has not answered yet.
    struct Held
    {
        QString text;
        WindowID window{};
        Keeping keeping;
    };

    void noteFront();
    [[nodiscard]] QString joined(const QString& text, std::optional<WindowID> target) const;
    [[nodiscard]] QCoro::Task<Outcome> deliverInTurn(QString text, Keeping keeping, Turn turn);
    [[nodiscard]] QCoro::Task<Outcome> deliverNext(QString text, Keeping keeping, Turn turn);
    [[nodiscard]] std::optional<Restore> takePending();
    [[nodiscard]] Restore takeFormer(const QString& dictated, const QString& waiting);
    [[nodiscard]] Former former(Pasteboard::Selection selection, const QString& dictated,
                                const std::optional<Former>& pending) const;
    [[nodiscard]] QCoro::Task<Outcome> waitForKeyboard(std::optional<WindowID> target);
    [[nodiscard]] QCoro::Task<> waitForKeyRelease();
    [[nodiscard]] bool isKeyboardBusy() const;
    [[nodiscard]] std::optional<Outcome> obstacle() const;
    [[nodiscard]] QString reasonOf(Outcome outcome) const;
    [[nodiscard]] bool hasKeyboard(WindowID window) const;
    [[nodiscard]] bool hasMovedOn(WindowID target) const;
    [[nodiscard]] bool keepsEveryFormat() const;
    [[nodiscard]] bool isFetched(Restore& paste) const;
    [[nodiscard]] bool isPasting();
    [[nodiscard]] bool isProgramOf(const Restore& paste, std::optional<WindowID> window) const;
    [[nodiscard]] bool mustWait(WindowID window);
    [[nodiscard]] bool isHeldBack(WindowID window);
    void bringHeld();
    [[nodiscard]] bool mayComeBackTo(WindowID window) const;
    void lookForHeldLater();
    QCoro::Task<> bring(Held held);
    void loseHeld();
    void returnToOwed(std::optional<WindowID> target);
    void tellOfOwed();
    void forgetOwed();
    void tellOfForgotten(Restore& paste);
    [[nodiscard]] bool isOurs(const Restore& paste) const;
    [[nodiscard]] bool willTake(const Restore& paste) const;
    void addToPending(const QString& dictated, Keeping keeping);
    void show(Pasteboard::Selection selection, const QString& text);
    void showAgain(const QString& dictated, Restore& former);
    void leave(const QString& text);
    void leaveAfter(const QString& waiting, Restore paste);
    [[nodiscard]] KeyEventPoster::PasteChord chordOf(std::optional<WindowID> window) const;
    [[nodiscard]] Outcome paste(const QString& dictated, WindowID target, Restore restore);
    void followPending();
    void lookAfter(std::chrono::milliseconds delay);
    void look();
    void restoreInTime();
    void finish(const Restore& paste);
    void lookForLateFetch();
    void tellOfUnfetched();
    [[nodiscard]] QString situation() const;
    void leaveForNow(Restore& paste);
    [[nodiscard]] QString reasonOfUnfetched(const Restore& paste, bool isFollowed) const;
    static void settle(Restore& paste);
    static bool lose(Restore& paste);
    [[nodiscard]] static QString whereIsLost(bool isStored);
    [[nodiscard]] QString whatOnlyTheClipboardHas();
    void restore(const Restore& former);
    void restore(Pasteboard::Selection selection, const std::optional<Former>& former);

    Pasteboard& pasteboard_;
    KeyEventPoster& keyEvents_;
    Workspace& workspace_;
    const SessionState& session_;
    UserDefaults& defaults_;
    Clock& clock_;
    std::optional<WindowID> lastFront_; ///< the last one in front that could take a text
    std::optional<WindowID> lastOther_; ///< the last one in front of another program
    Target target_;                     ///< of the next delivery
    std::optional<Latest> latest_;      ///< the paste that the next one may follow on
    std::optional<Restore> pending_;
    std::vector<Restore> owed_; ///< to windows that stood still when a text for another one came; the latest last
    std::vector<Held> held_;    ///< the earliest first
    quint64 heldLook_ = 0;      ///< number of the latest look at held_ that is due
    bool isDelivering_ = false;
    quint64 generation_ = 0; ///< of the looks at pending_: an earlier one does nothing
    QString keystrokeError_;
    QString onlyHere_;    ///< what was left on the clipboard and is kept nowhere else
    bool isLost_ = false; ///< the latest text is neither there nor in the history
};

} // namespace vantro
