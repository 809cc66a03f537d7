#pragma once

#include "base/Clock.h"

#include <QQuickView>

#include <chrono>

namespace vantro {

/// A small window with the implicit size of its QML root. The root's signal "closed" closes it. One that came up by
/// itself takes keys only once the keyboard has rested for restTime since it came up or got the keyboard: what is typed
/// at that moment was meant for another window. Main thread.
class Dialog : public QQuickView
{
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds restTime{1000};

    /// Brings the window to the front with the focus; when hidden before, in the middle of the screen.
    void present();
    /// The same for a window that comes up by itself: unless the keyboard is with a window of this program it stays
    /// where it is, and the window demands attention above the others.
    void presentUnasked();

protected:
    /// @p clock must outlive this. @p flags: in addition to the title bar and the close button.
    Dialog(QQmlEngine& engine, Clock& clock, const QString& title, Qt::WindowFlags flags = {});

    bool event(QEvent* event) override;

    /// Objects in @p properties must outlive the root, or call setSource({}) before they go.
    void load(const QString& qml, const QVariantMap& properties);

private:
    void bringToFront();
    void fitToContent();
    void place();
    void rest();
    [[nodiscard]] bool swallows(QEvent& key);

    Clock& clock_;
    Clock::Instant restBegan_;
    bool isRested_ = true;
    bool cameByItself_ = false;
};

} // namespace vantro
