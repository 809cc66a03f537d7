#include "vantro/ui/style/Dialog.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>

namespace vantro {

namespace {

/// Qt's X11 property for showing a window without activating it.
constexpr char withoutActivating[] = "_q_showWithoutActivating";

/// A launcher that has just been closed is about to lose it.
bool hasKeyboard()
{
    const QWindow* const focus = QGuiApplication::focusWindow();
    return focus != nullptr && focus->isVisible();
}

} // namespace

Dialog::Dialog(QQmlEngine& engine, Clock& clock, const QString& title, Qt::WindowFlags flags)
    : QQuickView(&engine, nullptr)
    , clock_(clock)
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
    cameByItself_ = false;
    isRested_ = true;
    bringToFront();
}

void Dialog::bringToFront()
{
    place();
    setProperty(withoutActivating, false);
    show();
    raise();
    requestActivate();
}

void Dialog::presentUnasked()
{
    cameByItself_ = true;
    rest();
    if (hasKeyboard()) {
        bringToFront();
        return;
    }
    place();
    setFlag(Qt::WindowStaysOnTopHint);
    setProperty(withoutActivating, true);
    show();
    alert(0);
}

void Dialog::place()
{
    fitToContent();
    if (const QScreen* screen = QGuiApplication::primaryScreen(); screen != nullptr && !isVisible()) {
        QRect rect(QPoint(), size());
        rect.moveCenter(screen->availableGeometry().center());
        setGeometry(rect);
    }
}

bool Dialog::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        if (cameByItself_)
            rest();
        break;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (swallows(*event))
            return true;
        break;
    default:
        break;
    }
    return QQuickView::event(event);
}

void Dialog::rest()
{
    isRested_ = false;
    restBegan_ = clock_.now();
}

bool Dialog::swallows(QEvent& key)
{
    if (!isRested_ && clock_.now() - restBegan_ < restTime) {
        restBegan_ = clock_.now();
        key.accept();
        return true;
    }
    isRested_ = true;
    return false;
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
