#include "vantro/ui/shortcuts/ShortcutWindow.h"

#include "vantro/ui/shortcuts/ShortcutRecorderType.h"
#include "vantro/ui/style/UiEngine.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>

namespace vantro {

ShortcutWindow::ShortcutWindow(QQmlEngine& engine, KeyboardShortcuts& shortcuts, const HotKeyManager& hotKeys,
                               const DesktopShortcuts& desktop, NotificationCenter& notifications,
                               const QString& reason)
    : QQuickView(&engine, nullptr)
    , recorder_(shortcuts, hotKeys, desktop, notifications, KeyboardShortcuts::Name::openModal)
{
    keepModule(qml_register_types_Vantro_Shortcuts);
    setFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setTitle(tr("Shortcut"));
    setResizeMode(SizeRootObjectToView);
    setInitialProperties(
        {{QStringLiteral("model"), QVariant::fromValue(&recorder_)}, {QStringLiteral("reason"), reason}});
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Vantro/Shortcuts/ShortcutPage.qml")));
    connect(rootObject(), SIGNAL(closed()), this, SLOT(close()));
    connect(rootObject(), &QQuickItem::implicitHeightChanged, this, &ShortcutWindow::fitToContent);
}

ShortcutWindow::~ShortcutWindow()
{
    setSource(QUrl()); // what it shows is bound to the recorder, which goes first
}

void ShortcutWindow::present()
{
    fitToContent();
    if (const QScreen* screen = QGuiApplication::primaryScreen(); screen != nullptr && !isVisible()) {
        QRect rect(QPoint(), size());
        rect.moveCenter(screen->availableGeometry().center());
        setGeometry(rect);
    }
    show();
    raise();
    requestActivate();
}

void ShortcutWindow::fitToContent()
{
    const QSize wanted(static_cast<int>(rootObject()->implicitWidth()),
                       static_cast<int>(rootObject()->implicitHeight()));
    setMinimumSize(wanted);
    setMaximumSize(wanted);
    resize(wanted);
}

} // namespace vantro
