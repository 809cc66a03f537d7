#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace vantro {

/// The level of the last 5 s as bars, the latest on the right; silence shows as dots. During processing, a thin
/// progress bar instead.
class WaveformItem : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY lookChanged)
    Q_PROPERTY(QColor idleColor MEMBER idleColor_ NOTIFY lookChanged)
    Q_PROPERTY(bool processing MEMBER processing_ NOTIFY lookChanged)
    Q_PROPERTY(qreal progress MEMBER progress_ NOTIFY lookChanged)
    /// Levels from 0 to 1, oldest first; only the last barCount are shown.
    Q_PROPERTY(QList<qreal> levels READ levels WRITE setLevels NOTIFY lookChanged)
public:
    /// One bar is 1/15 s.
    static constexpr int barCount = 75;

    explicit WaveformItem(QQuickItem* parent = nullptr);

    [[nodiscard]] const QList<qreal>& levels() const { return levels_; }
    void setLevels(const QList<qreal>& levels);
    void paint(QPainter* painter) override;

Q_SIGNALS:
    void lookChanged();

private:
    void paintBars(QPainter& painter) const;
    void paintProgress(QPainter& painter) const;

    QColor color_;
    QColor idleColor_;
    bool processing_ = false;
    qreal progress_ = 0;
    QList<qreal> levels_;
};

} // namespace vantro
