#pragma once

#include <QRect>

namespace vantro {

/// The recording panel as the dictation sees it. Main thread.
class LauncherPanel
{
public:
    virtual ~LauncherPanel() = default;

    [[nodiscard]] virtual QRect frame() const = 0;
    virtual void makeKeyAndOrderFront() = 0;
    /// Shows it without taking the keyboard focus.
    virtual void orderFront() = 0;
    /// Closes it for good, discards a running recording, and posts "launcher:closed". Does nothing the second time.
    virtual void closePanel() = 0;
};

} // namespace vantro
