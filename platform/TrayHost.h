#pragma once

#include "platform/WindowID.h"

#include <QObject>

namespace vantro {

/// Whether the desktop has a place for a program's icon. Main thread only.
class TrayHost : public QObject
{
    Q_OBJECT
public:
    enum class Kind {
        none,
        statusNotifier, ///< shows icons that programs describe over the session bus, and draws their menu
        embedding,      ///< takes a program's own small window in
    };

    /// The better one where there are both.
    [[nodiscard]] virtual Kind kind() const = 0;

    /// Of the embedding kind: whether it blends windows that are translucent. Others stand on the tray's own ground.
    [[nodiscard]] virtual bool embedsTranslucent() const = 0;
    /// Of the embedding kind: asks it to take @p window in, which is the program's own and must not be shown before
    /// embedded() says that it is inside.
    virtual void embed(WindowID window) = 0;

Q_SIGNALS:
    /// A place has come or gone, or another one has taken its place: what was embedded has to be embedded anew.
    void kindChanged();
    void embedded(WindowID window);
};

} // namespace vantro
