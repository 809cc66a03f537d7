#pragma once

#include "base/Settings.h"
#include "platform/DesktopAppearance.h"

#include <QObject>
#include <QQmlEngine>
#include <QQmlNetworkAccessManagerFactory>

#include <memory>

namespace vantro {

/// Keeps the linker from dropping a QML module that is in a static library.
inline void keepModule(void (*registration)())
{
    [[maybe_unused]] volatile auto kept = registration;
}

/// How much larger than usual the desktop's text is. Never less than 1: a desktop that names no font gets a small one
/// from Qt.
[[nodiscard]] qreal textScale();

/// The QML engine and theme shared by all windows. QML fetches nothing from the network. The theme follows the
/// desktop's preference for light or dark unless "appearance" is "light" or "dark", its preference for animations
/// unless "reduceMotion" is set, and the size of its text. Main thread.
class UiEngine : public QObject
{
    Q_OBJECT
public:
    /// Both must outlive the engine.
    UiEngine(const UserDefaults& defaults, const DesktopAppearance& desktop);

    [[nodiscard]] QQmlEngine& engine() { return engine_; }
    [[nodiscard]] const QObject& theme() const { return *theme_; }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void applyTheme();

    const UserDefaults& defaults_;
    const DesktopAppearance& desktop_;
    std::unique_ptr<QQmlNetworkAccessManagerFactory> noNetwork_; ///< before the engine, which uses it to its end
    QQmlEngine engine_;
    QObject* theme_ = nullptr; ///< owned by the engine
};

} // namespace vantro
