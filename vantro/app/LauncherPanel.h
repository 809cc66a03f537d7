#pragma once

#include <QRect>

namespace vantro {

/// The recording panel as its dictation sees it. Main thread.
class LauncherPanel
{
public:
    virtual ~LauncherPanel() = default;

    [[nodiscard]] virtual QRect frame() const = 0;
    virtual void makeKeyAndOrderFront() = 0;
    /// Shows it while the keyboard stays where it is.
    virtual void orderFront() = 0;
    /// Closes for good, cancels a recording that still runs, and posts "launcher:closed". Does nothing the second time.
    virtual void closePanel() = 0;
};

} // namespace vantro
