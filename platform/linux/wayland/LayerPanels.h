#pragma once

#include <memory>
#include <vector>

class QWindow;
struct zwlr_layer_shell_v1;

namespace vantro {

class LayerPanel;
class WaylandConnection;

/// Shows windows of Qt as surfaces of the layer shell: above everything, on the screen that the user is on, with or
/// without the keyboard. Main thread only.
class LayerPanels
{
public:
    enum class Keyboard { exclusive, none };

    /// @p connection is asked what the compositor offers. The surfaces themselves belong to Qt's connection.
    explicit LayerPanels(const WaylandConnection& connection);
    ~LayerPanels();
    LayerPanels(const LayerPanels&) = delete;
    LayerPanels& operator=(const LayerPanels&) = delete;

    [[nodiscard]] bool areOffered() const { return areOffered_; }
    /// Shows @p window, which stays a panel until it is hidden. Its geometry counts relative to the size of its screen:
    /// the compositor chooses the screen. Returns false and does nothing where there is no layer shell.
    bool show(QWindow& window, Keyboard keyboard);
    /// The shown panel that is to have the keyboard; null without one.
    [[nodiscard]] const QWindow* exclusive() const;

private:
    [[nodiscard]] bool bindShell();

    bool areOffered_ = false;
    zwlr_layer_shell_v1* shell_ = nullptr;
    std::vector<std::unique_ptr<LayerPanel>> panels_;
};

} // namespace vantro
