#include "vantro/ui/tray/EmbeddedIcon.h"

#include "platform/TrayHost.h"

#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace vantro {

namespace {

constexpr QSize leastSize(22, 22);

} // namespace

EmbeddedIcon::EmbeddedIcon(TrayHost& host, QMenu& menu)
    : QWidget(nullptr, Qt::FramelessWindowHint | Qt::BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus)
    , menu_(menu)
{
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_AlwaysShowToolTips);
    setAttribute(Qt::WA_TranslucentBackground, host.embedsTranslucent());
    setMinimumSize(leastSize); // some trays shrink the window as far as it allows
    resize(leastSize);
    const WindowID window = winId();
    connect(&host, &TrayHost::embedded, this, [this, window](WindowID embedded) {
        if (embedded == window)
            show();
    });
    host.embed(window);
}

void EmbeddedIcon::setIcon(const QIcon& icon)
{
    icon_ = icon;
    update();
}

void EmbeddedIcon::paintEvent(QPaintEvent* /*event*/)
{
    // Before the first paint the window shows only the tray behind it.
    if (ground_.isNull() && !testAttribute(Qt::WA_TranslucentBackground))
        ground_ = screen()->grabWindow(winId(), 0, 0, width(), height());
    QPainter painter(this);
    painter.drawPixmap(0, 0, ground_);
    icon_.paint(&painter, rect());
}

void EmbeddedIcon::resizeEvent(QResizeEvent* /*event*/)
{
    ground_ = {};
}

void EmbeddedIcon::mousePressEvent(QMouseEvent* event)
{
    switch (event->button()) {
    case Qt::LeftButton:
        Q_EMIT clicked();
        break;
    case Qt::MiddleButton:
        Q_EMIT middleClicked();
        break;
    case Qt::RightButton:
        menu_.popup(event->globalPosition().toPoint());
        break;
    default:
        break;
    }
}

} // namespace vantro
