#pragma once

#include <optional>

namespace vantro {

class X11Connection;

/// Catches the errors of requests made during its lifetime instead of Xlib's handler, which would exit. Nestable.
class X11ErrorTrap
{
public:
    /// An X error code (BadAccess, BadWindow, ...), or `connectionLost`.
    using ErrorCode = int;
    static constexpr ErrorCode connectionLost = -1;

    explicit X11ErrorTrap(X11Connection& connection);
    ~X11ErrorTrap();
    X11ErrorTrap(const X11ErrorTrap&) = delete;
    X11ErrorTrap& operator=(const X11ErrorTrap&) = delete;

    /// Blocks until all requests have been processed; returns the first error.
    [[nodiscard]] std::optional<ErrorCode> sync();

private:
    friend class X11Connection;

    X11Connection& connection_;
    X11ErrorTrap* outer_;
    std::optional<ErrorCode> first_;
};

} // namespace vantro
