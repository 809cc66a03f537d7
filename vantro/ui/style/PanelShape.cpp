#include "vantro/ui/style/PanelShape.h"

#include <QPainterPath>
#include <QRegion>

namespace vantro {

void roundCorners(QQuickWindow& panel, int radius, bool isCompositing)
{
    panel.setColor(Qt::transparent);
    QPainterPath shape;
    if (!isCompositing)
        shape.addRoundedRect(QRectF(QPointF(), panel.size()), radius, radius);
    panel.setMask(QRegion(shape.toFillPolygon().toPolygon()));
}

} // namespace vantro
