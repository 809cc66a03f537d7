#include "vantro/ui/launcher/WaveformItem.h"

#include <QPainter>

#include <algorithm>

namespace vantro {

namespace {

constexpr qreal barFraction = 0.55; // the part of a bar's slot that is filled
constexpr qreal dotPixels = 2;
constexpr qreal linePixels = 3;

} // namespace

WaveformItem::WaveformItem(QQuickItem* parent) : QQuickPaintedItem(parent)
{
    connect(this, &WaveformItem::lookChanged, this, [this] { update(); });
}

void WaveformItem::setLevels(const QList<qreal>& levels)
{
    levels_ = levels;
    Q_EMIT lookChanged();
}

void WaveformItem::paint(QPainter* painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    if (processing_)
        paintProgress(*painter);
    else
        paintBars(*painter);
}

void WaveformItem::paintBars(QPainter& painter) const
{
    const qreal slot = width() / barCount;
    const qreal bar = slot * barFraction;
    const auto shown = std::min<qsizetype>(levels_.size(), barCount);
    for (qsizetype i = 0; i < barCount; ++i) {
        const qsizetype index = levels_.size() - barCount + i;
        const qreal level = i >= barCount - shown ? std::clamp(levels_[index], 0.0, 1.0) : 0.0;
        const qreal tall = std::max(level * height(), dotPixels);
        painter.setBrush(tall > dotPixels ? color_ : idleColor_);
        const QRectF rect(static_cast<qreal>(i) * slot + (slot - bar) / 2, (height() - tall) / 2, bar, tall);
        painter.drawRoundedRect(rect, bar / 2, bar / 2);
    }
}

void WaveformItem::paintProgress(QPainter& painter) const
{
    const QRectF line(0, (height() - linePixels) / 2, width(), linePixels);
    painter.setBrush(idleColor_);
    painter.drawRoundedRect(line, linePixels / 2, linePixels / 2);
    painter.setBrush(color_);
    painter.drawRoundedRect(QRectF(line.topLeft(), QSizeF(width() * std::clamp(progress_, 0.0, 1.0), linePixels)),
                            linePixels / 2, linePixels / 2);
}

} // namespace vantro
