#pragma once

#include "base/Clock.h"
#include "platform/Workspace.h"
#include "vantro/ui/hud/PasteHUDModel.h"

#include <QQuickView>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace vantro {

/// The heads-up display, for a moment, where the launcher was: "Ctrl+V to paste" with the reason for as long as reading
/// it takes, or an offer that a click accepts, or what is going on. Never takes the keyboard, and a click only for an
/// offer. Made once and shown again: what passes covers what stays for as long as reading it takes. Main thread.
class PasteHUDWindow final : public QQuickView
{
    Q_OBJECT
public:
    PasteHUDWindow(QQmlEngine& engine, Workspace& workspace, Clock& clock);
    ~PasteHUDWindow() override;

    /// @p anchor: the launcher's frame, in screen coordinates; the middle of the main screen when there is none.
    /// @p keys names what pastes the text in the window in front; may be empty. @p reason: a sentence, or nothing.
    /// Returns how long it is shown.
    std::chrono::milliseconds showHUD(std::optional<QRect> anchor, std::function<QString()> keys,
                                      const QString& reason);
    /// Tells what has been done, for as long as reading it takes, which is returned.
    std::chrono::milliseconds showNews(const QString& title, const QString& caption);
    struct Offer
    {
        std::function<void()> accepted;    ///< by a click
        std::function<void(bool)> covered; ///< whether something else is shown in its place for a moment
    };
    /// Stays until withdraw().
    void showOffer(std::optional<QRect> anchor, const QString& title, const QString& caption, Offer offer);
    /// Stays until withdraw().
    void showNotice(const QString& title);
    /// Ends an offer or a notice, also one that is covered.
    void withdraw();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// What is shown until it is withdrawn.
    struct Standing
    {
        std::optional<QRect> anchor;
        QString title;
        QString caption;
        Offer offer;
    };

    void followFront();
    void showStanding();
    void cover(bool isCovered);
    void present(std::optional<QRect> anchor, std::function<void()> clicked);
    std::chrono::milliseconds dismissAfterReading(const QString& text);
    QSize place(QRect content);
    void dismiss();

    Workspace& workspace_;
    Clock& clock_;
    PasteHUDModel model_;
    std::function<QString()> keys_;
    std::function<void()> clicked_;
    std::optional<Standing> standing_;
    bool isCovered_ = false;                   ///< by what passes
    std::unique_ptr<QObject> dismissWorkItem_; ///< its destruction cancels pending callbacks
};

} // namespace vantro
