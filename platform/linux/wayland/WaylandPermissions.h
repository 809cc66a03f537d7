#pragma once

#include "platform/Permissions.h"

#include <functional>
#include <utility>

namespace vantro {

/// What a Wayland desktop does not offer nobody can permit: without keystrokes the text is copied.
class WaylandPermissions final : public Permissions
{
public:
    /// @p microphoneAuthorized asks the sound system.
    explicit WaylandPermissions(std::function<bool()> microphoneAuthorized)
        : microphoneAuthorized_(std::move(microphoneAuthorized))
    {
    }

    [[nodiscard]] bool microphoneAuthorized() const override { return microphoneAuthorized_(); }
    [[nodiscard]] bool trustedForAccessibility() const override { return true; }

private:
    std::function<bool()> microphoneAuthorized_;
};

} // namespace vantro
