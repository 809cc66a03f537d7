#include "platform/linux/wayland/WaylandConnection.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <poll.h>
#include <wayland-client.h>

#include <algorithm>
#include <cerrno>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto patience = 1000ms;
/// Without its answer nothing would work until the next start, and at login everything is slow.
constexpr auto firstPatience = 10s;
constexpr std::uint32_t seatVersion = 1;

} // namespace

struct WaylandConnection::Callbacks
{
    static void global(void* data, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t version)
    {
        static_cast<WaylandConnection*>(data)->globals_.push_back({name, interface, version});
    }
    static void globalRemoved(void* data, wl_registry*, std::uint32_t name)
    {
        std::erase_if(static_cast<WaylandConnection*>(data)->globals_,
                      [name](const Global& global) { return global.name == name; });
    }
    static void done(void* data, wl_callback* callback, std::uint32_t)
    {
        *static_cast<bool*>(data) = true;
        wl_callback_destroy(callback);
    }

    static constexpr wl_registry_listener registry{global, globalRemoved};
    static constexpr wl_callback_listener sync{done};
};

WaylandConnection::WaylandConnection(Events events) : display_(wl_display_connect(nullptr))
{
    if (display_ == nullptr)
        return;
    registry_ = wl_display_get_registry(display_);
    wl_registry_add_listener(registry_, &Callbacks::registry, this);
    roundTrip(firstPatience);
    seat_ = static_cast<wl_seat*>(bind(wl_seat_interface, seatVersion));
    if (events == Events::byOwner)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(descriptor(), QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &WaylandConnection::dispatch);
}

WaylandConnection::~WaylandConnection()
{
    notifier_.reset();
    if (display_ == nullptr)
        return;
    if (seat_ != nullptr)
        wl_seat_destroy(seat_);
    wl_registry_destroy(registry_);
    wl_display_disconnect(display_);
}

bool WaylandConnection::isOpen() const
{
    return display_ != nullptr && wl_display_get_error(display_) == 0;
}

QString WaylandConnection::unavailableReason()
{
    return QCoreApplication::translate("WaylandConnection",
                                       "The connection to the desktop is gone. Start vantro again.");
}

int WaylandConnection::descriptor() const
{
    return display_ != nullptr ? wl_display_get_fd(display_) : -1;
}

bool WaylandConnection::offers(const char* interface) const
{
    return std::ranges::any_of(globals_, [&](const Global& global) { return global.interface == interface; });
}

void* WaylandConnection::bind(const wl_interface& interface, std::uint32_t version) const
{
    const auto global =
        std::ranges::find_if(globals_, [&](const Global& offered) { return offered.interface == interface.name; });
    if (global == globals_.end() || !isOpen())
        return nullptr;
    return wl_registry_bind(registry_, global->name, &interface, std::min(version, global->version));
}

bool WaylandConnection::roundTrip()
{
    return roundTrip(patience);
}

bool WaylandConnection::roundTrip(std::chrono::milliseconds limit)
{
    if (!isOpen())
        return false;
    bool isDone = false;
    wl_callback* const callback = wl_display_sync(display_);
    wl_callback_add_listener(callback, &Callbacks::sync, &isDone);
    const bool isAnswered = readUntil(isDone, std::chrono::steady_clock::now() + limit);
    // Its answer must not find the flag that lives no longer.
    if (!isAnswered)
        wl_callback_destroy(callback);
    return isAnswered;
}

bool WaylandConnection::readUntil(const bool& isDone, std::chrono::steady_clock::time_point giveUp)
{
    while (!isDone && isOpen()) {
        dispatch();
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(giveUp - std::chrono::steady_clock::now()).count();
        pollfd waiting{descriptor(), POLLIN, 0};
        if (isDone || left <= 0 || (poll(&waiting, 1, static_cast<int>(left)) < 0 && errno != EINTR))
            break;
    }
    return isDone;
}

void WaylandConnection::dispatch()
{
    while (wl_display_prepare_read(display_) != 0) {
        if (wl_display_dispatch_pending(display_) < 0)
            break;
    }
    if (!isOpen()) {
        // An end of file would wake the event loop for ever.
        if (notifier_)
            notifier_->setEnabled(false);
        return;
    }
    wl_display_flush(display_);
    pollfd waiting{descriptor(), POLLIN, 0};
    if (poll(&waiting, 1, 0) > 0)
        wl_display_read_events(display_);
    else
        wl_display_cancel_read(display_);
    wl_display_dispatch_pending(display_);
    wl_display_flush(display_);
}

} // namespace vantro
