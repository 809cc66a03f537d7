#pragma once

namespace vantro {

/// A window that is put aside while a dictation is recorded and brought back after it. Main thread.
class SideWindow
{
public:
    SideWindow() = default;
    virtual ~SideWindow() = default;
    SideWindow(const SideWindow&) = delete;
    SideWindow& operator=(const SideWindow&) = delete;

    [[nodiscard]] virtual bool isVisible() const = 0;
    virtual void orderOut() = 0;
    /// Brings the window back where it was. It gets the keyboard only when it had it before: the dictation's text may
    /// be meant for a field in it, or for a window of another program.
    virtual void orderFront() = 0;
};

} // namespace vantro
