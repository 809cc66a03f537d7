#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace vantro {

/// A key combination that the desktop's own settings give a meaning, in the encoding of platform/KeyCode.h.
struct DesktopShortcut
{
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;
    /// What it does there, as its settings call it ("Show desktop"); may be a command.
    QString action;

    friend bool operator==(const DesktopShortcut&, const DesktopShortcut&) = default;
};

/// The key combinations of the running desktop. Main thread only.
class DesktopShortcuts
{
public:
    virtual ~DesktopShortcuts() = default;

    /// Read anew at every call, in a few milliseconds. Empty on a desktop whose settings are not known here.
    [[nodiscard]] virtual std::vector<DesktopShortcut> bound() const = 0;
    /// What the system does with a combination before any program sees it; nothing for those that programs can have.
    [[nodiscard]] virtual std::optional<QString> reservedFor(std::uint32_t keyCode, std::uint32_t modifiers) const = 0;
};

} // namespace vantro
