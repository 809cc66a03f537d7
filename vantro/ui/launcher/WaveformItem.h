#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace vantro {

/// The level of the last five seconds as bars, the newest at the right; silent bars are dots. While the recording is
/// being processed it is a thin line that fills from left to right instead.
class WaveformItem : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY lookChanged)
    Q_PROPERTY(QColor idleColor MEMBER idleColor_ NOTIFY lookChanged)
    Q_PROPERTY(bool processing MEMBER processing_ NOTIFY lookChanged)
    Q_PROPERTY(qreal progress MEMBER progress_ NOTIFY lookChanged)
    /// Levels of 0..1, oldest first; at most barCount of them are shown.
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
