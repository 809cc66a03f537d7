#pragma once

#include "KeyboardShortcuts/RecorderCocoa.h"
#include "vantro/ui/style/Dialog.h"

namespace vantro {

/// Asks the user for the dictation shortcut. Main thread.
class ShortcutWindow final : public Dialog
{
    Q_OBJECT
public:
    /// @p reason: why it asks; may be empty. All references must outlive the window.
    ShortcutWindow(QQmlEngine& engine, Clock& clock, KeyboardShortcuts& shortcuts, const HotKeyManager& hotKeys,
                   const DesktopShortcuts& desktop, NotificationCenter& notifications, const QString& reason);
    ~ShortcutWindow() override;

    [[nodiscard]] RecorderCocoa& recorder() { return recorder_; }

private:
    RecorderCocoa recorder_;
};

} // namespace vantro
