#pragma once

#include "platform/DesktopShortcuts.h"

namespace vantro {

/// The shortcuts of the desktop in $XDG_CURRENT_DESKTOP: GNOME, KDE or Xfce.
class LinuxDesktopShortcuts final : public DesktopShortcuts
{
public:
    [[nodiscard]] std::vector<DesktopShortcut> bound() const override;
    [[nodiscard]] std::optional<QString> reservedFor(std::uint32_t keyCode, std::uint32_t modifiers) const override;
};

} // namespace vantro
