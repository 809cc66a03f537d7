#pragma once

#include <QQuickView>

namespace vantro {

/// A small window with the implicit size of its QML root. The root's signal "closed" closes it. Main thread.
class Dialog : public QQuickView
{
    Q_OBJECT
public:
    /// Brings the window to the front with the focus; when hidden before, in the middle of the screen.
    void present();

protected:
    /// @p flags: in addition to the title bar and the close button.
    Dialog(QQmlEngine& engine, const QString& title, Qt::WindowFlags flags = {});

    /// Objects in @p properties must outlive the root, or call setSource({}) before they go.
    void load(const QString& qml, const QVariantMap& properties);

private:
    void fitToContent();
};

} // namespace vantro
