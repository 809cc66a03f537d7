#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "base/Logger.h"
#include "platform/Workspace.h"
#include "vantro/app/LauncherPanel.h"
#include "vantro/ui/launcher/LauncherModel.h"

#include <QQuickView>

#include <memory>

namespace vantro {

/// The small panel of one dictation. It takes the keyboard: Space (a global hot key while the panel is key) ends the
/// recording, the digits choose a mode, Escape cancels. It closes itself, and so cancels a recording that still runs,
/// when another window gets the keyboard. Main thread.
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
    void closeEvent(QCloseEvent* event) override;

private:
    void placeOnScreen();
    void followKeyboard();
    void becomeKey();
    [[nodiscard]] QString keysOf(const KeyboardShortcuts::Name& name) const;
    void cancelOperation();
    [[nodiscard]] bool handleDigit(const QString& characters);

    Logger logger_{"Launcher"};
    Dictation& dictation_;
    KeyboardShortcuts& shortcuts_;
    Workspace& workspace_;
    NotificationCenter& notifications_;
    LauncherModel model_;
    KeyboardShortcuts::Registration inFocusActionObserver_;
    bool isKey_ = false;
    bool isClosed_ = false;
};

} // namespace vantro
