#pragma once

#include "base/Clock.h"
#include "platform/Workspace.h"
#include "vantro/ui/hud/PasteHUDModel.h"

#include <QQuickView>

#include <optional>

namespace vantro {

/// Shows "Ctrl+V to paste" for 1.5 s where the launcher was. Never takes the focus or a click. Reusable: showing it
/// again restarts the time. Main thread.
class PasteHUDWindow final : public QQuickView
{
    Q_OBJECT
public:
    PasteHUDWindow(QQmlEngine& engine, const Workspace& workspace, Clock& clock);
    ~PasteHUDWindow() override;

    /// @p anchor: the launcher's frame in screen coordinates; without it, the HUD is centred on the main screen.
    void showHUD(std::optional<QRect> anchor);

private:
    void dismiss();

    const Workspace& workspace_;
    Clock& clock_;
    PasteHUDModel model_;
    std::unique_ptr<QObject> dismissWorkItem_; ///< its destruction cancels pending callbacks
};

} // namespace vantro
