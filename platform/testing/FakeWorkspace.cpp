#include "platform/testing/FakeWorkspace.h"

namespace vantro::doubles {

void FakeWorkspace::activateWindow(WindowID window)
{
    activations_.push_back(window);
    if (policy_)
        policy_(window);
    else if (windowExists(window))
        focus(window);
}

QStringList FakeWorkspace::windowClass(WindowID window) const
{
    const auto found = windows_.find(window);
    return found != windows_.end() ? found->second : QStringList();
}

void FakeWorkspace::closeWindow(WindowID window)
{
    windows_.erase(window);
    if (focus_ == window)
        focus_.reset();
    if (front_ == window)
        setFrontWindow(std::nullopt);
}

void FakeWorkspace::setFrontWindow(std::optional<WindowID> window)
{
    front_ = window;
    Q_EMIT frontWindowChanged();
}

void FakeWorkspace::focus(WindowID window)
{
    setInputFocus(window);
    setFrontWindow(window);
}

} // namespace vantro::doubles
