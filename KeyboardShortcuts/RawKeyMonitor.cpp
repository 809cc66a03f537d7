#include "KeyboardShortcuts/RawKeyMonitor.h"

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "platform/KeyCode.h"

#include <QGuiApplication>
#include <QKeyEvent>

namespace vantro {

RawKeyMonitor::RawKeyMonitor(KeyboardShortcuts& shortcuts, const HotKeyManager& hotKeys)
    : shortcuts_(shortcuts)
    , hotKeys_(hotKeys)
{
    qGuiApp->installEventFilter(this);
}

bool RawKeyMonitor::eventFilter(QObject* watched, QEvent* event)
{
    // Windows receive each event once; Qt then delivers it again to the items inside.
    if (!watched->isWindowType() || (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease))
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const auto keyCode = hotKeys_.keyCodeOf(key.nativeScanCode());
    if (!keyCode)
        return false;
    if (event->type() == QEvent::KeyPress)
        return shortcuts_.handleRawKeyDown({{*keyCode}, Modifier::fromQt(key.modifiers())});
    return !key.isAutoRepeat() && shortcuts_.handleRawKeyUp({*keyCode});
}

} // namespace vantro
