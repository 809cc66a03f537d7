#pragma once

#include "base/Clock.h"
#include "base/UserDefaults.h"
#include "platform/KeyEventPoster.h"
#include "platform/Pasteboard.h"
#include "platform/Workspace.h"

#include <QObject>
#include <QString>
#include <qcoro/qcorotask.h>

#include <optional>

namespace vantro {

/// Brings a dictation's text into the window that the user was working in. Main thread only.
///
/// The keystroke goes to that very window or nowhere: when it is gone, or the keyboard does not come back to it, the
/// text stays on the clipboard and the outcome says so.
class PasteDelivery
{
public:
    enum class Outcome {
        Pasted,
        /// The text was empty; nothing was touched.
        Nothing,
        // In all that follow the text is on the clipboard and stays there.
        NoTarget,
        TargetGone,
        FocusNotReturned,
        KeystrokeFailed,
    };

    /// All of them must outlive this object.
    PasteDelivery(Pasteboard& pasteboard, KeyEventPoster& keyEvents, Workspace& workspace, UserDefaults& defaults,
                  Clock& clock);

    /// Call when a dictation begins, before any window of ours is shown: the window in front is where its text will go.
    void rememberTarget();

    /// Puts @p text, trimmed, on the clipboard. False, with nothing changed, when nothing remains of it.
    bool copy(const QString& text);

    /// Copies @p text, waits until the remembered window has the keyboard (500 ms at most) and no key is held down (one
    /// second at most), posts the paste keystroke that this window understands and returns. Unless
    /// "copyToClipboardEnabled" is set the clipboard's former text is put back later: 0.3 s after the keystroke, or
    /// when the window's program has fetched the text if that takes longer (2 s at most), and not at all when somebody
    /// else has set the clipboard meanwhile.
    [[nodiscard]] QCoro::Task<Outcome> deliver(QString text);

    /// Puts the clipboard's former text back without waiting for the program that pastes: the process is about to end.
    void restoreNow();

    /// A sentence for the user; empty for the outcomes that need none.
    [[nodiscard]] QString explanation(Outcome outcome) const;

private:
    class NextLook;

    /// What a selection held before, and the text of ours that has taken its place.
    struct Former
    {
        QString ours;
        std::optional<QString> text;
    };
    struct Restore
    {
        std::optional<Former> clipboard;
        std::optional<Former> primary;
        WindowID target = 0;
        Pasteboard::Selection pasted = Pasteboard::Selection::Clipboard;
        Clock::Instant pastedAt;
    };

    [[nodiscard]] Restore takeFormer(const QString& dictated);
    [[nodiscard]] Former former(Pasteboard::Selection selection, const QString& dictated,
                                const std::optional<Former>& pending) const;
    [[nodiscard]] QCoro::Task<Outcome> waitForKeyboard(std::optional<WindowID> target);
    [[nodiscard]] QCoro::Task<> waitForKeyRelease();
    [[nodiscard]] bool hasKeyboard(WindowID window) const;
    [[nodiscard]] Outcome paste(const QString& dictated, WindowID target, Restore restore);
    void scheduleRestore(std::chrono::milliseconds delay);
    void restoreWhenFetched();
    void restore(Pasteboard::Selection selection, const std::optional<Former>& former);

    Pasteboard& pasteboard_;
    KeyEventPoster& keyEvents_;
    Workspace& workspace_;
    UserDefaults& defaults_;
    Clock& clock_;
    std::optional<WindowID> target_;
    std::optional<Restore> pending_;
    quint64 generation_ = 0;
    QString keystrokeError_;
    /// Gone with this object, so that nothing that waits touches it afterwards.
    QObject context_;
};

} // namespace vantro
