#pragma once

#include <QIcon>
#include <QPixmap>
#include <QWidget>

class QMenu;

namespace vantro {

class TrayHost;

/// The small window that a tray of the embedding kind takes in. Main thread.
class EmbeddedIcon final : public QWidget
{
    Q_OBJECT
public:
    /// Asks @p host to take it in. @p menu: what the right button opens. Both must outlive the icon.
    EmbeddedIcon(TrayHost& host, QMenu& menu);

    void setIcon(const QIcon& icon);

Q_SIGNALS:
    void clicked();
    void middleClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QMenu& menu_;
    QIcon icon_;
    QPixmap ground_; ///< of the tray, where nothing blends windows with it
};

} // namespace vantro
