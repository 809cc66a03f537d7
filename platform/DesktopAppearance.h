#pragma once

#include <QObject>

#include <optional>

namespace vantro {

/// How the user wants programs of this desktop to look. Nothing where the desktop does not say. Main thread only.
class DesktopAppearance : public QObject
{
    Q_OBJECT
public:
    [[nodiscard]] virtual std::optional<bool> isDark() const = 0;
    [[nodiscard]] virtual std::optional<bool> animationsEnabled() const = 0;

Q_SIGNALS:
    void changed();
};

} // namespace vantro
