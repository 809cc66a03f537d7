#pragma once

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

    [[nodiscard]] virtual Kind kind() const = 0;

Q_SIGNALS:
    /// A place has come or gone.
    void kindChanged();
};

} // namespace vantro
