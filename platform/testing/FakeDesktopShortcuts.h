#pragma once

#include "platform/DesktopShortcuts.h"

namespace vantro::doubles {

/// A desktop with the shortcuts that a test gives it.
class FakeDesktopShortcuts final : public DesktopShortcuts
{
public:
    [[nodiscard]] std::vector<DesktopShortcut> bound() const override { return shortcuts; }

    std::vector<DesktopShortcut> shortcuts;
};

} // namespace vantro::doubles
