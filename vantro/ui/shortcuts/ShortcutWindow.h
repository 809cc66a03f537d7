#pragma once

#include "KeyboardShortcuts/RecorderCocoa.h"

#include <QQuickView>

namespace vantro {

/// Asks for the shortcut of a dictation. Main thread.
class ShortcutWindow final : public QQuickView
{
    Q_OBJECT
public:
    /// @p reason: a sentence that says why it asks; may be empty. Everything else outlives the window.
    ShortcutWindow(QQmlEngine& engine, KeyboardShortcuts& shortcuts, const HotKeyManager& hotKeys,
                   const DesktopShortcuts& desktop, NotificationCenter& notifications, const QString& reason);
    ~ShortcutWindow() override;

    [[nodiscard]] RecorderCocoa& recorder() { return recorder_; }
    void present();

private:
    void fitToContent();

    RecorderCocoa recorder_;
};

} // namespace vantro
