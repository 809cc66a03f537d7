#include "platform/linux/wayland/LayerPanels.h"

#include "platform/linux/wayland/WaylandConnection.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>

#include <wayland-client.h>

// The protocol names an argument with a word of C++.
#define namespace namespace_ // NOLINT(clang-diagnostic-keyword-macro)
#include <wlr-layer-shell-unstable-v1-client-protocol.h>
#undef namespace

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

constexpr std::uint32_t shellVersion = 3;
constexpr std::uint32_t everyEdge = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
                                    ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;

wl_display* qtDisplay()
{
    return static_cast<wl_display*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForIntegration("wl_display"));
}

wl_surface* surfaceOf(QWindow& window)
{
    return static_cast<wl_surface*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForWindow("surface", &window));
}

} // namespace

/// A window with the role of a layer surface, from its show to its hide.
class LayerPanel
{
public:
    LayerPanel(zwlr_layer_shell_v1* shell, QWindow& window, LayerPanels::Keyboard keyboard);
    ~LayerPanel() { end(); }
    LayerPanel(const LayerPanel&) = delete;
    LayerPanel& operator=(const LayerPanel&) = delete;

    [[nodiscard]] bool isShown() const { return layer_ != nullptr; }
    [[nodiscard]] bool isExclusive() const { return isShown() && keyboard_ == LayerPanels::Keyboard::exclusive; }
    [[nodiscard]] const QWindow& window() const { return window_; }

private:
    static void configured(void* data, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t width,
                           std::uint32_t height);
    static void closed(void* data, zwlr_layer_surface_v1* layer);
    static constexpr zwlr_layer_surface_v1_listener listener{configured, closed};

    void measureScreen();
    void place();
    void end();

    QWindow& window_;
    LayerPanels::Keyboard keyboard_;
    wl_surface* surface_;
    zwlr_layer_surface_v1* layer_ = nullptr;
    QSize screen_;
    QObject context_; ///< its end disconnects
};

LayerPanel::LayerPanel(zwlr_layer_shell_v1* shell, QWindow& window, LayerPanels::Keyboard keyboard)
    : window_(window)
    , keyboard_(keyboard)
    , surface_(surfaceOf(window))
{
    if (surface_ == nullptr)
        return;
    layer_ =
        zwlr_layer_shell_v1_get_layer_surface(shell, surface_, nullptr, ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "vantro");
    zwlr_layer_surface_v1_add_listener(layer_, &listener, this);
    zwlr_layer_surface_v1_set_keyboard_interactivity(layer_, keyboard == LayerPanels::Keyboard::exclusive ? 1 : 0);
    zwlr_layer_surface_v1_set_exclusive_zone(layer_, -1);
    measureScreen();
    place();
    wl_display_roundtrip(qtDisplay());
    // Before Qt takes the surface away, which would be an error while it has a role.
    QObject::connect(&window_, &QWindow::visibleChanged, &context_, [this](bool isVisible) {
        if (!isVisible)
            end();
    });
    for (const auto change : {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged})
        QObject::connect(&window_, change, &context_, [this] { place(); });
}

/// By asking for all of it, before anything is shown: the compositor chooses the screen.
void LayerPanel::measureScreen()
{
    zwlr_layer_surface_v1_set_anchor(layer_, everyEdge);
    zwlr_layer_surface_v1_set_size(layer_, 0, 0);
    wl_surface_commit(surface_);
    wl_display_roundtrip(qtDisplay());
}

void LayerPanel::place()
{
    if (layer_ == nullptr)
        return;
    const QRect known = window_.screen()->geometry();
    const QSize size = window_.size();
    const QSize screen = screen_.isEmpty() ? known.size() : screen_;
    const QPoint wanted = window_.geometry().center() - known.topLeft();
    const QPoint centre(wanted.x() * screen.width() / known.width(), wanted.y() * screen.height() / known.height());
    const int left = std::clamp(centre.x() - size.width() / 2, 0, std::max(0, screen.width() - size.width()));
    const int top = std::clamp(centre.y() - size.height() / 2, 0, std::max(0, screen.height() - size.height()));
    zwlr_layer_surface_v1_set_anchor(layer_, ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
    zwlr_layer_surface_v1_set_margin(layer_, top, 0, 0, left);
    zwlr_layer_surface_v1_set_size(layer_, static_cast<std::uint32_t>(size.width()),
                                   static_cast<std::uint32_t>(size.height()));
    wl_surface_commit(surface_);
}

void LayerPanel::configured(void* data, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t width,
                            std::uint32_t height)
{
    auto& panel = *static_cast<LayerPanel*>(data);
    if (panel.screen_.isEmpty())
        panel.screen_ = QSize(static_cast<int>(width), static_cast<int>(height));
    zwlr_layer_surface_v1_ack_configure(layer, serial);
}

/// Its screen is gone.
void LayerPanel::closed(void* data, zwlr_layer_surface_v1* /*layer*/)
{
    auto& panel = *static_cast<LayerPanel*>(data);
    QMetaObject::invokeMethod(
        &panel.window_, [&window = panel.window_] { window.close(); }, Qt::QueuedConnection);
}

void LayerPanel::end()
{
    if (auto* const layer = std::exchange(layer_, nullptr)) {
        zwlr_layer_surface_v1_destroy(layer);
        wl_display_flush(qtDisplay());
    }
}

LayerPanels::LayerPanels(const WaylandConnection& connection)
    : areOffered_(connection.offers(zwlr_layer_shell_v1_interface.name))
{
}

LayerPanels::~LayerPanels() = default;

bool LayerPanels::show(QWindow& window, Keyboard keyboard)
{
    if (!areOffered_ || !bindShell())
        return false;
    std::erase_if(panels_, [](const auto& panel) { return !panel->isShown(); });
    // Otherwise it stays as it is, and moves with its geometry.
    if (window.isVisible())
        return true;
    // Qt gives such a window no role of its own (QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT).
    window.setFlag(Qt::BypassWindowManagerHint);
    window.show();
    panels_.push_back(std::make_unique<LayerPanel>(shell_, window, keyboard));
    return true;
}

const QWindow* LayerPanels::exclusive() const
{
    const auto found = std::ranges::find_if(panels_, [](const auto& panel) { return panel->isExclusive(); });
    return found != panels_.end() ? &(*found)->window() : nullptr;
}

/// On Qt's connection, to which the windows' surfaces belong.
bool LayerPanels::bindShell()
{
    if (shell_ != nullptr)
        return true;
    static constexpr wl_registry_listener listener{
        [](void* data, wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t version) {
            if (qstrcmp(interface, zwlr_layer_shell_v1_interface.name) == 0)
                *static_cast<zwlr_layer_shell_v1**>(data) = static_cast<zwlr_layer_shell_v1*>(
                    wl_registry_bind(registry, name, &zwlr_layer_shell_v1_interface, std::min(version, shellVersion)));
        },
        [](void*, wl_registry*, std::uint32_t) {
        }};
    wl_registry* const registry = wl_display_get_registry(qtDisplay());
    wl_registry_add_listener(registry, &listener, &shell_);
    wl_display_roundtrip(qtDisplay());
    wl_registry_destroy(registry);
    return shell_ != nullptr;
}

} // namespace vantro
