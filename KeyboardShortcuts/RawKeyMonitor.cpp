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
    // A window gets each event once; the items inside are handed it again.
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
