#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "base/Logger.h"
#include "platform/Workspace.h"
#include "vantro/app/LauncherPanel.h"
#include "vantro/ui/launcher/LauncherModel.h"

#include <QQuickView>

#include <memory>
#include <optional>
#include <vector>

namespace vantro {

/// The recording panel of one dictation. While it has the focus, Space (grabbed as a global hot key) ends the
/// recording, a digit chooses a mode and the release of Escape (a hot key too) cancels. It closes itself, discarding a
/// running recording, when the user goes to another window. Main thread.
class Launcher final : public QQuickView, public LauncherPanel
{
    Q_OBJECT
public:
    struct Context
    {
        QQmlEngine& engine;
        Dictation& dictation;
        KeyboardShortcuts& shortcuts;
        Workspace& workspace;
        NotificationCenter& notifications;
        Clock& clock;
        std::vector<LauncherModel::Mode> modes;
        QString microphone;
        QString note; ///< what the user should know about this dictation; may be empty
    };

    explicit Launcher(const Context& context);
    ~Launcher() override;

    [[nodiscard]] QRect frame() const override { return geometry(); }
    void makeKeyAndOrderFront() override;
    void orderFront() override;
    void closePanel() override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private Q_SLOTS:
    void cancelOperation();

private:
    void placeOnScreen();
    void followKeyboard();
    void takeKeyboard();
    [[nodiscard]] bool hasKeyboard() const;
    [[nodiscard]] bool takeBack();
    void followState();
    [[nodiscard]] QString cancelHint() const;
    void becomeKey();
    [[nodiscard]] QString keysOf(const KeyboardShortcuts::Name& name) const;
    [[nodiscard]] bool escapeCancels() const;
    [[nodiscard]] bool chooseMode(const QKeyEvent& key);

    Logger logger_{"Launcher"};
    Dictation& dictation_;
    KeyboardShortcuts& shortcuts_;
    Workspace& workspace_;
    NotificationCenter& notifications_;
    Clock& clock_;
    LauncherModel model_;
    KeyboardShortcuts::Registration inFocusActionObserver_;
    KeyboardShortcuts::Registration cancelObserver_;
    bool isEscapeDown_ = false;
    bool isReturnDown_ = false;
    std::unique_ptr<UserActivity> activity_; ///< while the launcher has the keyboard
    std::vector<Clock::Instant> takenBack_;  ///< when it was taken back lately
    std::optional<WindowID> former_;
    quint64 latestOwnInput_ = 0; ///< the window system's time stamp
    bool wasNudged_ = false;
    bool isKey_ = false;
    bool isClosed_ = false;
};

} // namespace vantro
