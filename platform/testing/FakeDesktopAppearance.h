#pragma once

#include "platform/DesktopAppearance.h"

namespace vantro::doubles {

/// A desktop that looks as a test says; without animations, so that a picture is final at once.
class FakeDesktopAppearance final : public DesktopAppearance
{
public:
    [[nodiscard]] std::optional<bool> isDark() const override { return dark; }
    [[nodiscard]] std::optional<bool> animationsEnabled() const override { return false; }

    std::optional<bool> dark;
};

} // namespace vantro::doubles
