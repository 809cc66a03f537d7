#include "vantro/ui/style/Dialog.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>

namespace vantro {

Dialog::Dialog(QQmlEngine& engine, const QString& title, Qt::WindowFlags flags) : QQuickView(&engine, nullptr)
{
    setFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | flags);
    setTitle(title);
    setResizeMode(SizeRootObjectToView);
}

void Dialog::load(const QString& qml, const QVariantMap& properties)
{
    setInitialProperties(properties);
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Vantro/") + qml));
    connect(rootObject(), SIGNAL(closed()), this, SLOT(close()));
    connect(rootObject(), &QQuickItem::implicitHeightChanged, this, &Dialog::fitToContent);
}

void Dialog::present()
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

void Dialog::fitToContent()
{
    const QSize wanted(static_cast<int>(rootObject()->implicitWidth()),
                       static_cast<int>(rootObject()->implicitHeight()));
    setMinimumSize(wanted);
    setMaximumSize(wanted);
    resize(wanted);
}

} // namespace vantro
