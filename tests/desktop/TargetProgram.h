#pragma once

#include "platform/WindowID.h"
#include "platform/Workspace.h"

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace vantro::desktop {

class DesktopUser;

/// A program with a window that text is pasted into. It is started by its factory, which returns when its window has
/// the keyboard, and ended when destroyed.
class TargetProgram
{
public:
    /// A Qt text field.
    static std::unique_ptr<TargetProgram> qtEditor(const Workspace& workspace);
    /// A real xterm whose program notes what it is sent. @p pasteKey, in xterm's own notation, pastes the clipboard
    /// too.
    static std::unique_ptr<TargetProgram> xterm(const Workspace& workspace, const QString& pasteKey = {});
    /// A real GTK editor; reading it back saves its document with Ctrl+S.
    static std::unique_ptr<TargetProgram> mousepad(const Workspace& workspace, DesktopUser& user);

    virtual ~TargetProgram();
    TargetProgram(const TargetProgram&) = delete;
    TargetProgram& operator=(const TargetProgram&) = delete;

    [[nodiscard]] WindowID window() const { return window_; }
    /// What has arrived in it so far.
    [[nodiscard]] virtual QString text() = 0;
    /// Stops it in its tracks, so that it answers nobody, and lets it go on.
    void freeze();
    void thaw();
    /// Ends it without a question; returns when its window is gone.
    void close();

protected:
    TargetProgram() = default;
    void start(const Workspace& workspace, const QString& program, const QStringList& arguments);

    QProcess process_;
    QTemporaryDir folder_;

private:
    const Workspace* workspace_ = nullptr;
    WindowID window_ = 0;
};

} // namespace vantro::desktop
