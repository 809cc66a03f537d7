#pragma once

#include <QIcon>
#include <QPixmap>
#include <QWidget>

class QMenu;

namespace vantro {

class TrayHost;

/// The icon window for a tray that embeds windows (XEmbed). Main thread.
class EmbeddedIcon final : public QWidget
{
    Q_OBJECT
public:
    /// Asks @p host to embed it. @p menu: opened by the right button. Both must outlive the icon.
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
    QPixmap ground_; ///< the tray behind the icon, where transparency is not supported
};

} // namespace vantro
