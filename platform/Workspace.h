#pragma once

#include "platform/WindowID.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>

namespace vantro {

/// The other programs' windows, as far as delivery needs them. Main thread only.
class Workspace : public QObject
{
    Q_OBJECT
public:
    /// The window that has the keyboard; nothing when none has. Own windows count too.
    [[nodiscard]] virtual std::optional<WindowID> frontWindow() const = 0;
    [[nodiscard]] virtual bool windowExists(WindowID window) const = 0;
    /// Whether the window system itself sends key presses to @p window or one of its children right now. frontWindow()
    /// is the window manager's word, which can run ahead of it.
    [[nodiscard]] virtual bool hasInputFocus(WindowID window) const = 0;
    /// Asks the window manager to give @p window the keyboard; frontWindowChanged() tells when it has.
    virtual void activateWindow(WindowID window) = 0;
    /// The window's class and instance names, most specific last ("XTerm", "xterm"); empty when it tells none.
    [[nodiscard]] virtual QStringList windowClass(WindowID window) const = 0;
    /// With the desktop's program for it. False when none could be started.
    virtual bool openUrl(const QString& url) = 0;
    /// Whether translucent windows show what lies below them; without a compositor it is black.
    [[nodiscard]] virtual bool isCompositing() const = 0;

Q_SIGNALS:
    void frontWindowChanged();
};

} // namespace vantro
