#include "platform/linux/wayland/WaylandWorkspace.h"

#include "platform/linux/wayland/WaylandConnection.h"
#include "platform/linux/windows/OwnWindows.h"

#include <QGuiApplication>
#include <QWindow>

namespace vantro {

namespace {

/// Stands for any window of another program where the compositor does not tell of them.
constexpr WindowID somewhere = WindowID{1} << 39;

/// Qt keeps a window that has been hidden for a moment longer.
const QWindow* windowWithKeyboard()
{
    const QWindow* const focus = QGuiApplication::focusWindow();
    return focus != nullptr && focus->isVisible() ? focus : nullptr;
}

/// Nobody tells what the user does in other programs' windows, so he may always have done it.
class UnknownActivity final : public UserActivity
{
public:
    [[nodiscard]] bool hasActed(std::chrono::milliseconds /*span*/, quint64 /*after*/) const override { return true; }
};

} // namespace

WaylandWorkspace::WaylandWorkspace(WaylandConnection& connection)
    : toplevels_(WaylandToplevels::of(connection))
    , panels_(connection)
{
    if (toplevels_ != nullptr)
        connect(toplevels_.get(), &WaylandToplevels::changed, this, &WaylandWorkspace::noteKeyboard);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &WaylandWorkspace::noteKeyboard);
}

std::optional<WindowID> WaylandWorkspace::frontWindow() const
{
    if (const QWindow* const own = windowWithKeyboard())
        return own->winId();
    if (const auto other = otherWithKeyboard())
        return other;
    const QWindow* const panel = panels_.exclusive();
    return panel != nullptr ? std::optional<WindowID>(panel->winId()) : std::nullopt;
}

std::optional<WindowID> WaylandWorkspace::otherWithKeyboard() const
{
    if (toplevels_ == nullptr)
        return somewhere;
    const auto activated = toplevels_->activated();
    // Ours without the keyboard is about to get it, or to lose the mark.
    const bool isOther = activated && activated->appId != QGuiApplication::desktopFileName();
    return isOther ? std::optional(activated->id) : std::nullopt;
}

bool WaylandWorkspace::isKeyboardTaken() const
{
    if (windowWithKeyboard() != nullptr || otherWithKeyboard())
        return false;
    return panels_.exclusive() != nullptr || (lastOther_ && windowExists(*lastOther_));
}

void WaylandWorkspace::noteKeyboard()
{
    if (const auto other = otherWithKeyboard())
        lastOther_ = other;
    Q_EMIT frontWindowChanged();
}

bool WaylandWorkspace::windowExists(WindowID window) const
{
    return isOwn(window) || (toplevels_ != nullptr ? toplevels_->find(window).has_value() : window == somewhere);
}

/// Compositors move the keyboard and tell of it in one.
bool WaylandWorkspace::hasInputFocus(WindowID window) const
{
    const QWindow* const own = windowWithKeyboard();
    return own != nullptr ? own->winId() == window : otherWithKeyboard() == window;
}

void WaylandWorkspace::activateWindow(WindowID window)
{
    if (toplevels_ == nullptr)
        return;
    const QWindow* const own = ownwindows::find(window);
    if (own == nullptr)
        toplevels_->activate(window);
    else if (const auto toplevel = toplevels_->find(QGuiApplication::desktopFileName(), own->title()))
        toplevels_->activate(toplevel->id);
}

bool WaylandWorkspace::isOwn(WindowID window) const
{
    return ownwindows::find(window) != nullptr;
}

bool WaylandWorkspace::takesText(WindowID window) const
{
    return ownwindows::takesText(window);
}

QStringList WaylandWorkspace::windowClass(WindowID window) const
{
    const auto toplevel = toplevels_ != nullptr ? toplevels_->find(window) : std::nullopt;
    return toplevel && !toplevel->appId.isEmpty() ? QStringList{toplevel->appId} : QStringList();
}

bool WaylandWorkspace::openUrl(const QString& url)
{
    return ownwindows::openUrl(url);
}

bool WaylandWorkspace::showPanel(QWindow& window, PanelKeyboard keyboard)
{
    if (!frontWindow())
        lastOther_.reset(); // the user is where no window is
    return panels_.show(window, keyboard == PanelKeyboard::exclusive ? LayerPanels::Keyboard::exclusive
                                                                     : LayerPanels::Keyboard::none);
}

std::unique_ptr<UserActivity> WaylandWorkspace::watchUser()
{
    return std::make_unique<UnknownActivity>();
}

} // namespace vantro
