#include "vantro/ui/alert/AlertWindow.h"

#include "vantro/ui/style/UiEngine.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>

void qml_register_types_Vantro_Alert();

namespace vantro {

AlertWindow::AlertWindow(QQmlEngine& engine, const QString& title, const QString& text) : QQuickView(&engine, nullptr)
{
    keepModule(qml_register_types_Vantro_Alert);
    setFlags(Qt::Dialog | Qt::WindowStaysOnTopHint | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
             Qt::WindowCloseButtonHint);
    // Not modal: the launcher of the next dictation gets the keyboard although an alert is still open.
    setTitle(title);
    setInitialProperties({{QStringLiteral("title"), title}, {QStringLiteral("text"), text}});
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Vantro/Alert/Alert.qml")));
    connect(rootObject(), SIGNAL(accepted()), this, SLOT(accept()));
    connect(this, &QWindow::visibleChanged, this, [this](bool visible) {
        if (!visible)
            deleteLater();
    });
}

void AlertWindow::present()
{
    const QSize size(static_cast<int>(rootObject()->implicitWidth()), static_cast<int>(rootObject()->implicitHeight()));
    setMinimumSize(size);
    setMaximumSize(size);
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        QRect rect(QPoint(), size);
        rect.moveCenter(screen->availableGeometry().center());
        setGeometry(rect);
    }
    show();
    raise();
    requestActivate();
}

void AlertWindow::accept()
{
    close();
}

} // namespace vantro
