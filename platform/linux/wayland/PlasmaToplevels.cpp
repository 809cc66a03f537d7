#include "platform/linux/wayland/PlasmaToplevels.h"

#include "platform/linux/wayland/WaylandConnection.h"

#include <plasma-window-management-client-protocol.h>
#include <wayland-client.h>

namespace vantro {

namespace {

using PlasmaHandle = org_kde_plasma_window;
using Management = org_kde_plasma_window_management;

constexpr std::uint32_t managementVersion = 4; ///< later ones name windows in other ways
constexpr std::uint32_t active = ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE;

} // namespace

struct PlasmaToplevels::Callbacks
{
    static PlasmaToplevels& self(void* data) { return *static_cast<PlasmaToplevels*>(data); }

    static void window(void* data, Management* management, std::uint32_t number)
    {
        static const org_kde_plasma_window_listener listener = windowListener();
        PlasmaHandle* const handle = org_kde_plasma_window_management_get_window(management, number);
        self(data).add(handle);
        org_kde_plasma_window_add_listener(handle, &listener, data);
    }
    static void title(void* data, PlasmaHandle* handle, const char* text)
    {
        self(data).windowOf(handle).pending.title = QString::fromUtf8(text);
        publish(data, handle);
    }
    static void appId(void* data, PlasmaHandle* handle, const char* text)
    {
        self(data).windowOf(handle).pending.appId = QString::fromUtf8(text);
        publish(data, handle);
    }
    static void state(void* data, PlasmaHandle* handle, std::uint32_t flags)
    {
        self(data).windowOf(handle).pending.isActivated = (flags & active) != 0;
        publish(data, handle);
    }
    static void publish(void* data, PlasmaHandle* handle)
    {
        Window& window = self(data).windowOf(handle);
        window.present = window.pending;
        Q_EMIT self(data).changed();
    }
    static void unmapped(void* data, PlasmaHandle* handle)
    {
        self(data).remove(handle);
        org_kde_plasma_window_destroy(handle);
        Q_EMIT self(data).changed();
    }

    /// What else they tell does not matter. KWin tells some of it whatever version was asked for, and the library ends
    /// a program that has no function for it.
    static org_kde_plasma_window_listener windowListener()
    {
        org_kde_plasma_window_listener listener{};
        listener.title_changed = title;
        listener.app_id_changed = appId;
        listener.state_changed = state;
        listener.unmapped = unmapped;
        listener.virtual_desktop_changed = [](void*, PlasmaHandle*, std::int32_t) {
        };
        listener.themed_icon_name_changed = [](void*, PlasmaHandle*, const char*) {
        };
        listener.initial_state = [](void*, PlasmaHandle*) {
        };
        listener.parent_window = [](void*, PlasmaHandle*, PlasmaHandle*) {
        };
        listener.geometry = [](void*, PlasmaHandle*, std::int32_t, std::int32_t, std::uint32_t, std::uint32_t) {
        };
        listener.icon_changed = [](void*, PlasmaHandle*) {
        };
        listener.pid_changed = [](void*, PlasmaHandle*, std::uint32_t) {
        };
        listener.virtual_desktop_entered = [](void*, PlasmaHandle*, const char*) {
        };
        listener.virtual_desktop_left = [](void*, PlasmaHandle*, const char*) {
        };
        listener.application_menu = [](void*, PlasmaHandle*, const char*, const char*) {
        };
        listener.activity_entered = [](void*, PlasmaHandle*, const char*) {
        };
        listener.activity_left = [](void*, PlasmaHandle*, const char*) {
        };
        listener.resource_name_changed = [](void*, PlasmaHandle*, const char*) {
        };
        return listener;
    }
    static org_kde_plasma_window_management_listener managementListener()
    {
        org_kde_plasma_window_management_listener listener{};
        listener.show_desktop_changed = [](void*, Management*, std::uint32_t) {
        };
        listener.window = window;
        return listener;
    }
};

bool PlasmaToplevels::areOffered(const WaylandConnection& connection)
{
    return connection.offers(org_kde_plasma_window_management_interface.name);
}

PlasmaToplevels::PlasmaToplevels(WaylandConnection& connection)
    : connection_(connection)
    , management_(
          static_cast<Management*>(connection.bind(org_kde_plasma_window_management_interface, managementVersion)))
{
    static const org_kde_plasma_window_management_listener listener = Callbacks::managementListener();
    org_kde_plasma_window_management_add_listener(management_, &listener, this);
    // The first answer names the windows, the second describes them.
    connection_.roundTrip();
    connection_.roundTrip();
}

PlasmaToplevels::~PlasmaToplevels()
{
    for (const auto& window : windows())
        org_kde_plasma_window_destroy(static_cast<PlasmaHandle*>(window->handle));
    org_kde_plasma_window_management_destroy(management_);
}

void PlasmaToplevels::activate(WindowID id)
{
    auto* const handle = static_cast<PlasmaHandle*>(handleOf(id));
    if (handle == nullptr || !connection_.isOpen())
        return;
    org_kde_plasma_window_set_state(handle, active, active);
    connection_.dispatch();
}

} // namespace vantro
