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

/// Pastes a dictation's text into the window the user was working in. Main thread.
///
/// The keystroke goes to that window or nowhere: if the window is gone or does not get the focus back, the text stays
/// on the clipboard and the outcome says so.
class PasteDelivery
{
public:
    enum class Outcome {
        Pasted,
        /// The text was empty; nothing was touched.
        Nothing,
        // For the following ones the text stays on the clipboard.
        NoTarget,
        TargetGone,
        FocusNotReturned,
        KeystrokeFailed,
    };

    /// All references must outlive this object.
    PasteDelivery(Pasteboard& pasteboard, KeyEventPoster& keyEvents, Workspace& workspace, UserDefaults& defaults,
                  Clock& clock);

    /// Call when a dictation begins, before showing any window: its text will go to the window in front.
    void rememberTarget();

    /// Puts @p text, trimmed, on the clipboard. Returns false and changes nothing when it is blank.
    bool copy(const QString& text);

    /// Copies @p text, waits until the remembered window has the focus (up to 500 ms) and no key is held down (up to 1
    /// s), then posts the window's paste keystroke. Unless "copyToClipboardEnabled" is set, the previous clipboard text
    /// is restored later: 0.3 s after the keystroke, or once the window has fetched the text if that takes longer (up
    /// to 2 s), and not at all if the clipboard has been changed since.
    [[nodiscard]] QCoro::Task<Outcome> deliver(QString text);

    /// Restores the clipboard without waiting for the pasting program. For when the process is about to end.
    void restoreNow();

    /// What to tell the user; empty when the outcome needs no explanation.
    [[nodiscard]] QString explanation(Outcome outcome) const;

private:
    class NextLook;

    /// The previous text of a selection, and our text that has replaced it.
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
    /// Context of all callbacks: none runs after this object is destroyed.
    QObject context_;
};

} // namespace vantro
