#pragma once

#include "platform/TrayHost.h"
#include "vantro/ui/tray/EmbeddedIcon.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>
#include <vector>

namespace vantro {

/// The icon in the desktop's tray, which shows whether a dictation is running, and its menu. Appears as soon as there
/// is a tray, and follows when its kind changes. Main thread.
class TrayIcon final : public QObject
{
    Q_OBJECT
public:
    enum class State { idle, recording, processing };

    /// An entry of a submenu.
    struct Choice
    {
        QString name;
        bool isChosen = false;
    };
    /// What the submenus offer.
    struct Offers
    {
        QStringList recent; ///< the first words of the latest dictations
        std::vector<Choice> microphones;
        std::vector<Choice> modes;
    };

    /// @p host must outlive the icon.
    explicit TrayIcon(TrayHost& host);
    ~TrayIcon() override;

    void setState(State state);
    /// Shown next to "Dictate"; empty when there is none.
    void setShortcut(const QString& shortcut);
    void setPrivate(bool on);
    void setOffers(const Offers& offers);

Q_SIGNALS:
    /// The menu opens: time to call setOffers().
    void aboutToShow();
    // With the place in the offers.
    void copyRequested(int recent);
    void microphoneRequested(int microphone);
    void modeRequested(int mode);
    void dictateRequested();
    void finishRequested();
    void cancelRequested();
    void historyRequested();
    void notesRequested();
    void guideRequested();
    void privateRequested(bool on);
    void settingsRequested();
    void modelsRequested();
    void updateCheckRequested();
    void errorReportRequested();
    void feedbackRequested();
    void aboutRequested();
    void quitRequested();

private:
    void makeMenu();
    void fill(QMenu& menu, const std::vector<Choice>& choices, void (TrayIcon::*requested)(int));
    void followHost();
    void makeIcon();
    void makeEmbeddedIcon();
    void update();
    [[nodiscard]] QString toolTip() const;

    TrayHost& host_;
    QMenu menu_;
    QAction* dictate_ = nullptr;             ///< owned by the menu, like the next
    QAction* finish_ = nullptr;              ///< seen while something is recorded
    QAction* cancel_ = nullptr;              ///< seen while there is a dictation
    std::unique_ptr<QSystemTrayIcon> icon_;  ///< in a StatusNotifier tray
    std::unique_ptr<EmbeddedIcon> embedded_; ///< in an XEmbed tray, otherwise
    QMenu* recent_ = nullptr;                ///< owned by the menu, like the next two
    QMenu* microphones_ = nullptr;
    QMenu* modes_ = nullptr;
    QAction* private_ = nullptr; ///< checked in a private session
    State state_ = State::idle;
    QString shortcut_;
};

} // namespace vantro
