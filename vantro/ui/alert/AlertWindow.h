#pragma once

#include <QQuickView>

namespace vantro {

/// A warning with a title, a text and the single button "OK" (Return, Space, Escape). Deletes itself when closed.
/// Main thread.
class AlertWindow final : public QQuickView
{
    Q_OBJECT
public:
    AlertWindow(QQmlEngine& engine, const QString& title, const QString& text);

    void present();

private Q_SLOTS:
    void accept();
};

} // namespace vantro
