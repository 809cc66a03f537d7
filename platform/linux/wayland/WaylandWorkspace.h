#pragma once

#include "platform/Workspace.h"
#include "platform/linux/wayland/LayerPanels.h"
#include "platform/linux/wayland/WaylandToplevels.h"

class QWindow;

namespace vantro {

class WaylandConnection;

/// Knows its own windows from Qt and the others from the compositor. Where that does not tell, everything that is not
/// ours is one window, which has the keyboard whenever none of ours has it.
class WaylandWorkspace final : public Workspace
{
    Q_OBJECT
public:
    /// @p connection must outlive the workspace.
    explicit WaylandWorkspace(WaylandConnection& connection);

    [[nodiscard]] std::optional<WindowID> frontWindow() const override;
    [[nodiscard]] bool windowExists(WindowID window) const override;
    [[nodiscard]] bool hasInputFocus(WindowID window) const override;
    void activateWindow(WindowID window) override;
    [[nodiscard]] bool isOwn(WindowID window) const override;
    [[nodiscard]] bool takesText(WindowID window) const override;
    [[nodiscard]] QStringList windowClass(WindowID window) const override;
    bool openUrl(const QString& url) override;
    [[nodiscard]] bool isCompositing() const override { return true; }
    bool showPanel(QWindow& window, PanelKeyboard keyboard) override;
    [[nodiscard]] std::unique_ptr<UserActivity> watchUser() override;

    /// The protocol that tells of other programs' windows; empty if none does.
    [[nodiscard]] QString windowsWay() const { return toplevels_ != nullptr ? toplevels_->way() : QString(); }
    /// Whether a locker or a menu of the desktop has the keyboard, which our panel should have, or the window that had
    /// it before the panel.
    [[nodiscard]] bool isKeyboardTaken() const;
    [[nodiscard]] bool hasPanels() const { return panels_.areOffered(); }

private:
    [[nodiscard]] std::optional<WindowID> otherWithKeyboard() const;
    void noteKeyboard();

    std::unique_ptr<WaylandToplevels> toplevels_; ///< null where the compositor does not tell
    LayerPanels panels_;
    std::optional<WindowID> lastOther_; ///< the window that had the keyboard last
};

} // namespace vantro
