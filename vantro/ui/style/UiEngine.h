#pragma once

#include "base/Settings.h"
#include "platform/DesktopAppearance.h"

#include <QObject>
#include <QQmlEngine>

namespace vantro {

/// A QML module that lies in a static library is dropped by the linker unless something names its registration.
inline void keepModule(void (*registration)())
{
    [[maybe_unused]] volatile auto kept = registration;
}

/// The one QML engine behind every window, and the look they share. The look follows the desktop's wish for
/// light or dark unless "appearance" is "light" or "dark", and its wish for movement unless "reduceMotion" is set. Main
/// thread.
class UiEngine : public QObject
{
    Q_OBJECT
public:
    /// Both must outlive the engine.
    UiEngine(const UserDefaults& defaults, const DesktopAppearance& desktop);

    [[nodiscard]] QQmlEngine& engine() { return engine_; }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void applyTheme();

    const UserDefaults& defaults_;
    const DesktopAppearance& desktop_;
    QQmlEngine engine_;
    QObject* theme_ = nullptr; ///< the engine's
};

} // namespace vantro
