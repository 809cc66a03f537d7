#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace vantro {

/// A key combination bound in the desktop's settings, encoded as in platform/KeyCode.h.
struct DesktopShortcut
{
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;
    /// The name of its action in those settings ("Show desktop"); may be a command.
    QString action;

    friend bool operator==(const DesktopShortcut&, const DesktopShortcut&) = default;
};

/// The key combinations of the running desktop. Main thread only.
class DesktopShortcuts
{
public:
    virtual ~DesktopShortcuts() = default;

    /// Reads the settings on every call, which takes a few milliseconds. Empty on unsupported desktops.
    [[nodiscard]] virtual std::vector<DesktopShortcut> bound() const = 0;
    /// What the system uses a combination for before any program sees it; nullopt if programs can have it.
    [[nodiscard]] virtual std::optional<QString> reservedFor(std::uint32_t keyCode, std::uint32_t modifiers) const = 0;
};

} // namespace vantro
