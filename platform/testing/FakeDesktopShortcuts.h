#pragma once

#include "platform/DesktopShortcuts.h"

namespace vantro::doubles {

/// A desktop with configurable shortcuts.
class FakeDesktopShortcuts final : public DesktopShortcuts
{
public:
    [[nodiscard]] std::vector<DesktopShortcut> bound() const override { return shortcuts; }

    [[nodiscard]] std::optional<QString> reservedFor(std::uint32_t keyCode, std::uint32_t modifiers) const override
    {
        if (reserved && keyCode == reserved->keyCode && modifiers == reserved->modifiers)
            return reserved->action;
        return std::nullopt;
    }

    std::vector<DesktopShortcut> shortcuts;
    std::optional<DesktopShortcut> reserved;
};

} // namespace vantro::doubles
