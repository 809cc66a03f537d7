#pragma once

#include "platform/WindowID.h"

#include <QObject>

namespace vantro {

/// The desktop's system tray. Main thread only.
class TrayHost : public QObject
{
    Q_OBJECT
public:
    enum class Kind {
        none,
        statusNotifier, ///< draws icons and menus that programs describe over the session bus
        embedding,      ///< embeds a small window of the program
    };

    /// Prefers statusNotifier if there are both.
    [[nodiscard]] virtual Kind kind() const = 0;

    /// For the embedding kind: whether it supports translucent windows. If not, they get the tray's background.
    [[nodiscard]] virtual bool embedsTranslucent() const = 0;
    /// For the embedding kind: requests that it embed the program's @p window, which must stay hidden until embedded()
    /// is emitted.
    virtual void embed(WindowID window) = 0;

Q_SIGNALS:
    /// A tray has appeared, disappeared or been replaced: embed again.
    void kindChanged();
    void embedded(WindowID window);
};

} // namespace vantro
