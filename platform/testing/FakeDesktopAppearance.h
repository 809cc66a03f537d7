#pragma once

#include "platform/DesktopAppearance.h"

namespace vantro::doubles {

/// A configurable desktop without animations, so that screenshots are final at once.
class FakeDesktopAppearance final : public DesktopAppearance
{
public:
    [[nodiscard]] std::optional<bool> isDark() const override { return dark; }
    [[nodiscard]] std::optional<bool> animationsEnabled() const override { return false; }

    std::optional<bool> dark;
};

} // namespace vantro::doubles
