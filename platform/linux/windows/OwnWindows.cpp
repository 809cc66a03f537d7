#include "platform/linux/windows/OwnWindows.h"

#include "base/Logger.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QInputMethodQueryEvent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QUrl>

#include <algorithm>

namespace vantro {

namespace {

/// The item that has the focus whenever @p window has the keyboard; null without one.
QQuickItem* focusItem(const QQuickWindow* window)
{
    QQuickItem* item = window != nullptr ? window->contentItem() : nullptr;
    while (item != nullptr && item->isFocusScope() && item->scopedFocusItem() != nullptr)
        item = item->scopedFocusItem();
    return item;
}

} // namespace

QWindow* ownwindows::find(WindowID window)
{
    const QWindowList own = QGuiApplication::allWindows();
    const auto found = std::ranges::find_if(
        own, [&](QWindow* candidate) { return candidate->handle() && candidate->winId() == window; });
    return found != own.end() ? *found : nullptr;
}

bool ownwindows::takesText(WindowID window)
{
    QQuickItem* const item = focusItem(qobject_cast<const QQuickWindow*>(find(window)));
    if (item == nullptr)
        return false;
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QCoreApplication::sendEvent(item, &query);
    return query.value(Qt::ImEnabled).toBool();
}

bool ownwindows::openUrl(const QString& url)
{
    const bool isOpened = QDesktopServices::openUrl(QUrl(url));
    if (!isOpened)
        Logger("Workspace").error(QStringLiteral("No program could be started to open %1").arg(url));
    return isOpened;
}

} // namespace vantro
