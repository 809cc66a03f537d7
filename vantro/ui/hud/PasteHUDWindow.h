#pragma once

#include "base/Clock.h"
#include "platform/Workspace.h"
#include "vantro/ui/hud/PasteHUDModel.h"

#include <QQuickView>

#include <optional>

namespace vantro {

/// "Ctrl+V to paste", for a moment, where the launcher was, and the reason for as long as reading it takes. Never takes
/// the keyboard or a click. Made once and shown again; the latest show decides when it goes. Main thread.
class PasteHUDWindow final : public QQuickView
{
    Q_OBJECT
public:
    PasteHUDWindow(QQmlEngine& engine, const Workspace& workspace, Clock& clock);
    ~PasteHUDWindow() override;

    /// @p anchor: the launcher's frame, in screen coordinates; the middle of the main screen when there is none.
    /// @p keys paste the text. @p reason: a sentence, or nothing.
    void showHUD(std::optional<QRect> anchor, const QString& keys, const QString& reason);

private:
    void dismiss();

    const Workspace& workspace_;
    Clock& clock_;
    PasteHUDModel model_;
    std::unique_ptr<QObject> dismissWorkItem_; ///< its destruction cancels pending callbacks
};

} // namespace vantro
