#pragma once

#include <QQuickView>

namespace vantro {

/// A small window that is as large as its QML root wants to be. The root's signal "closed" closes it. Main thread.
class Dialog : public QQuickView
{
    Q_OBJECT
public:
    /// Comes forward with the keyboard, at first in the middle of the screen.
    void present();

protected:
    /// @p flags: besides a title and a button that closes.
    Dialog(QQmlEngine& engine, const QString& title, Qt::WindowFlags flags = {});

    /// What @p properties point to must outlive the root: see setSource().
    void load(const QString& qml, const QVariantMap& properties);

private:
    void fitToContent();
};

} // namespace vantro
