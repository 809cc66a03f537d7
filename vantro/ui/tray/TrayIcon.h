#pragma once

#include "platform/TrayHost.h"
#include "vantro/ui/tray/EmbeddedIcon.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>

namespace vantro {

/// The program's place in the desktop's tray: an icon that tells whether a dictation is under way, and a menu. Appears
/// as soon as there is a tray, and moves to a better one. Main thread.
class TrayIcon final : public QObject
{
    Q_OBJECT
public:
    enum class State { idle, recording, processing };

    /// @p host must outlive the icon.
    explicit TrayIcon(TrayHost& host);
    ~TrayIcon() override;

    void setState(State state);
    /// Shown beside "Dictate"; empty when there is none.
    void setShortcut(const QString& shortcut);

Q_SIGNALS:
    void dictateRequested();
    void historyRequested();
    void settingsRequested();
    void modelsRequested();
    void updateCheckRequested();
    void errorReportRequested();
    void feedbackRequested();
    void aboutRequested();
    void quitRequested();

private:
    void makeMenu();
    void followHost();
    void makeIcon();
    void makeEmbeddedIcon();
    void update();
    [[nodiscard]] QString toolTip() const;

    TrayHost& host_;
    QMenu menu_;
    QAction* dictate_ = nullptr;             ///< the menu's
    std::unique_ptr<QSystemTrayIcon> icon_;  ///< in a tray of the newer kind
    std::unique_ptr<EmbeddedIcon> embedded_; ///< in one of the older kind, while there is no newer
    State state_ = State::idle;
    QString shortcut_;
};

} // namespace vantro
