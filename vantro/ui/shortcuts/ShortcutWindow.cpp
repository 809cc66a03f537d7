#include "vantro/ui/shortcuts/ShortcutWindow.h"

#include "vantro/ui/shortcuts/ShortcutRecorderType.h"
#include "vantro/ui/style/UiEngine.h"

namespace vantro {

ShortcutWindow::ShortcutWindow(QQmlEngine& engine, Clock& clock, KeyboardShortcuts& shortcuts,
                               const HotKeyManager& hotKeys, const DesktopShortcuts& desktop,
                               NotificationCenter& notifications, const QString& reason)
    : Dialog(engine, clock, tr("Shortcut"))
    , recorder_(shortcuts, hotKeys, desktop, notifications, KeyboardShortcuts::Name::openModal)
{
    keepModule(qml_register_types_Vantro_Shortcuts);
    load(QStringLiteral("Shortcuts/ShortcutPage.qml"),
         {{QStringLiteral("model"), QVariant::fromValue(&recorder_)}, {QStringLiteral("reason"), reason}});
}

ShortcutWindow::~ShortcutWindow()
{
    setSource(QUrl()); // its bindings use the recorder, which is destroyed first
}

} // namespace vantro
