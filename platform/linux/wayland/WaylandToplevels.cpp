#include "platform/linux/wayland/WaylandToplevels.h"

#include "platform/linux/wayland/PlasmaToplevels.h"
#include "platform/linux/wayland/WaylandConnection.h"
#include "platform/linux/wayland/WlrToplevels.h"

#include <algorithm>

namespace vantro {

namespace {

/// Qt counts its windows from 1.
constexpr WindowID idsOfOthers = WindowID{1} << 40;

} // namespace

std::unique_ptr<WaylandToplevels> WaylandToplevels::of(WaylandConnection& connection)
{
    if (WlrToplevels::areOffered(connection))
        return std::make_unique<WlrToplevels>(connection);
    if (PlasmaToplevels::areOffered(connection))
        return std::make_unique<PlasmaToplevels>(connection);
    return nullptr;
}

WaylandToplevels::WaylandToplevels() : lastId_(idsOfOthers) {}

WaylandToplevels::Window& WaylandToplevels::add(void* handle)
{
    windows_.push_back(std::make_unique<Window>());
    windows_.back()->handle = handle;
    windows_.back()->pending.id = ++lastId_;
    return *windows_.back();
}

WaylandToplevels::Window& WaylandToplevels::windowOf(const void* handle)
{
    return **std::ranges::find_if(windows_, [handle](const auto& window) { return window->handle == handle; });
}

void* WaylandToplevels::handleOf(WindowID id) const
{
    const auto found = std::ranges::find_if(windows_, [id](const auto& window) { return window->present.id == id; });
    return found != windows_.end() ? (*found)->handle : nullptr;
}

void WaylandToplevels::remove(const void* handle)
{
    std::erase_if(windows_, [handle](const auto& window) { return window->handle == handle; });
}

std::optional<WaylandToplevels::Toplevel> WaylandToplevels::activated() const
{
    const auto found = std::ranges::find_if(windows_, [](const auto& window) { return window->present.isActivated; });
    return found != windows_.end() ? std::optional((*found)->present) : std::nullopt;
}

std::optional<WaylandToplevels::Toplevel> WaylandToplevels::find(WindowID id) const
{
    const auto found = std::ranges::find_if(windows_, [id](const auto& window) { return window->present.id == id; });
    return found != windows_.end() ? std::optional((*found)->present) : std::nullopt;
}

std::optional<WaylandToplevels::Toplevel> WaylandToplevels::find(const QString& appId, const QString& title) const
{
    const auto found = std::ranges::find_if(
        windows_, [&](const auto& window) { return window->present.appId == appId && window->present.title == title; });
    return found != windows_.end() ? std::optional((*found)->present) : std::nullopt;
}

} // namespace vantro
