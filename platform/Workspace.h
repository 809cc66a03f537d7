#pragma once

#include "platform/WindowID.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>
#include <optional>

class QWindow;

namespace vantro {

/// What the user does at the keyboard and with the pointer, in whatever program. Main thread only.
class UserActivity
{
public:
    virtual ~UserActivity() = default;

    /// Whether a key was pressed or released or a button pressed within the last @p span, later than the event with the
    /// window system's time stamp @p after.
    [[nodiscard]] virtual bool hasActed(std::chrono::milliseconds span, quint64 after) const = 0;
};

/// Other programs' windows, as needed for delivery. Main thread only.
class Workspace : public QObject
{
    Q_OBJECT
public:
    /// The active window, which may be our own; nullopt if there is none.
    [[nodiscard]] virtual std::optional<WindowID> frontWindow() const = 0;
    [[nodiscard]] virtual bool windowExists(WindowID window) const = 0;
    /// Whether key presses currently go to @p window or one of its children. frontWindow() comes from the window
    /// manager and may be ahead of this.
    [[nodiscard]] virtual bool hasInputFocus(WindowID window) const = 0;
    /// Asks the window manager to activate @p window; success is signalled by frontWindowChanged().
    virtual void activateWindow(WindowID window) = 0;
    /// Whether @p window is one of this program's.
    [[nodiscard]] virtual bool isOwn(WindowID window) const = 0;
    /// Whether @p window, one of this program's, would put a pasted text into a field.
    [[nodiscard]] virtual bool takesText(WindowID window) const = 0;
    /// The window's class and instance names, most specific last ("XTerm", "xterm"); empty if it has none.
    [[nodiscard]] virtual QStringList windowClass(WindowID window) const = 0;
    /// Asks the program of @p window for a sign of life, which comes after what it does with events that it was sent
    /// before. Returns at once; false for programs that never answer, and on systems that do not ask.
    virtual bool ping(WindowID /*window*/) { return false; }
    /// Whether @p window has answered its latest ping().
    [[nodiscard]] virtual bool hasAnswered(WindowID /*window*/) const { return false; }
    /// Opens @p url in the desktop's default program. Returns false if none could be started.
    virtual bool openUrl(const QString& url) = 0;
    /// Whether translucency works; without a compositor it is rendered black.
    [[nodiscard]] virtual bool isCompositing() const = 0;
    /// Shows @p window, frameless and in the place that its geometry has on the screen, above everything else, on the
    /// screen that the user is on. With `exclusive` it has the keyboard until it is hidden. Returns false and does
    /// nothing on systems where a window does that by itself.
    enum class PanelKeyboard { exclusive, none };
    virtual bool showPanel(QWindow& /*window*/, PanelKeyboard /*keyboard*/) { return false; }
    /// Watches the user while the result exists; only one may exist at a time.
    [[nodiscard]] virtual std::unique_ptr<UserActivity> watchUser() = 0;

Q_SIGNALS:
    void frontWindowChanged();
};

} // namespace vantro
