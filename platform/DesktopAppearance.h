#pragma once

#include <QObject>

#include <optional>

namespace vantro {

/// The desktop's appearance preferences; nullopt where the desktop has none. Main thread only.
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
