#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "base/Logger.h"
#include "platform/Workspace.h"
#include "vantro/app/LauncherPanel.h"
#include "vantro/ui/launcher/LauncherModel.h"

#include <QQuickView>

#include <memory>

namespace vantro {

/// The recording panel of one dictation. While it has the focus, Space (grabbed as a global hot key) ends the
/// recording, a digit chooses a mode and the release of Escape (a hot key too) cancels. It closes itself, discarding a
/// running recording, when another window gets the focus. Main thread.
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
    };

    explicit Launcher(const Context& context);
    ~Launcher() override;

    [[nodiscard]] QRect frame() const override { return geometry(); }
    void makeKeyAndOrderFront() override;
    void orderFront() override;
    void closePanel() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void placeOnScreen();
    void followKeyboard();
    void followState();
    void becomeKey();
    [[nodiscard]] QString keysOf(const KeyboardShortcuts::Name& name) const;
    void cancelOperation();
    [[nodiscard]] bool escapeCancels() const;
    [[nodiscard]] bool handleDigit(const QString& characters);

    Logger logger_{"Launcher"};
    Dictation& dictation_;
    KeyboardShortcuts& shortcuts_;
    Workspace& workspace_;
    NotificationCenter& notifications_;
    LauncherModel model_;
    KeyboardShortcuts::Registration inFocusActionObserver_;
    KeyboardShortcuts::Registration cancelObserver_;
    bool isEscapeDown_ = false;
    bool isKey_ = false;
    bool isClosed_ = false;
};

} // namespace vantro
