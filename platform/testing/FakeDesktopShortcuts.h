#pragma once

#include "platform/DesktopShortcuts.h"

namespace vantro::doubles {

/// A desktop with the shortcuts that a test gives it.
class FakeDesktopShortcuts final : public DesktopShortcuts
{
public:
    [[nodiscard]] std::vector<DesktopShortcut> bound() const override { return shortcuts; }

    [[nodiscard]] std::optional<QString> reservedFor(std::uint32_t keyCode, std::uint32_t modifiers) const override
    {
        return keyCode == reserved.keyCode && modifiers == reserved.modifiers ? std::optional(reserved.action)
                                                                              : std::nullopt;
    }

    std::vector<DesktopShortcut> shortcuts;
    DesktopShortcut reserved;
};

} // namespace vantro::doubles
