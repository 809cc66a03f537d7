#include "platform/linux/wayland/WlrToplevels.h"

#include "platform/linux/wayland/WaylandConnection.h"

#include <wayland-client.h>
#include <wlr-foreign-toplevel-management-unstable-v1-client-protocol.h>

#include <algorithm>
#include <span>

namespace vantro {

namespace {

using WlrHandle = zwlr_foreign_toplevel_handle_v1;
using Manager = zwlr_foreign_toplevel_manager_v1;

constexpr std::uint32_t toplevelManagerVersion = 3;

bool contains(const wl_array& states, std::uint32_t state)
{
    const std::span all(static_cast<const std::uint32_t*>(states.data), states.size / sizeof(std::uint32_t));
    return std::ranges::find(all, state) != all.end();
}

} // namespace

struct WlrToplevels::Callbacks
{
    static WlrToplevels& self(void* data) { return *static_cast<WlrToplevels*>(data); }

    static void toplevel(void* data, Manager* /*manager*/, WlrHandle* handle)
    {
        self(data).add(handle);
        zwlr_foreign_toplevel_handle_v1_add_listener(handle, &handleListener, data);
    }
    static void finished(void* /*data*/, Manager* /*manager*/) {}
    static void title(void* data, WlrHandle* handle, const char* text)
    {
        self(data).windowOf(handle).pending.title = QString::fromUtf8(text);
    }
    static void appId(void* data, WlrHandle* handle, const char* text)
    {
        self(data).windowOf(handle).pending.appId = QString::fromUtf8(text);
    }
    static void output(void* /*data*/, WlrHandle* /*handle*/, wl_output* /*output*/) {}
    static void state(void* data, WlrHandle* handle, wl_array* states)
    {
        self(data).windowOf(handle).pending.isActivated =
            contains(*states, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED);
    }
    static void done(void* data, WlrHandle* handle)
    {
        Window& window = self(data).windowOf(handle);
        window.present = window.pending;
        Q_EMIT self(data).changed();
    }
    static void closed(void* data, WlrHandle* handle)
    {
        self(data).remove(handle);
        zwlr_foreign_toplevel_handle_v1_destroy(handle);
        Q_EMIT self(data).changed();
    }
    static void parent(void* /*data*/, WlrHandle* /*handle*/, WlrHandle* /*parent*/) {}

    static constexpr zwlr_foreign_toplevel_manager_v1_listener managerListener{toplevel, finished};
    static constexpr zwlr_foreign_toplevel_handle_v1_listener handleListener{title, appId, output, output,
                                                                             state, done,  closed, parent};
};

bool WlrToplevels::areOffered(const WaylandConnection& connection)
{
    return connection.offers(zwlr_foreign_toplevel_manager_v1_interface.name);
}

WlrToplevels::WlrToplevels(WaylandConnection& connection)
    : connection_(connection)
    , manager_(
          static_cast<Manager*>(connection.bind(zwlr_foreign_toplevel_manager_v1_interface, toplevelManagerVersion)))
{
    zwlr_foreign_toplevel_manager_v1_add_listener(manager_, &Callbacks::managerListener, this);
    // The first answer names the windows, the second describes them.
    connection_.roundTrip();
    connection_.roundTrip();
}

WlrToplevels::~WlrToplevels()
{
    for (const auto& window : windows())
        zwlr_foreign_toplevel_handle_v1_destroy(static_cast<WlrHandle*>(window->handle));
    zwlr_foreign_toplevel_manager_v1_destroy(manager_);
}

void WlrToplevels::activate(WindowID id)
{
    auto* const handle = static_cast<WlrHandle*>(handleOf(id));
    if (handle == nullptr || connection_.seat() == nullptr || !connection_.isOpen())
        return;
    zwlr_foreign_toplevel_handle_v1_activate(handle, connection_.seat());
    connection_.dispatch();
}

} // namespace vantro
