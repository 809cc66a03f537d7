#pragma once

#include "platform/Permissions.h"

#include <functional>

namespace vantro {

class X11Connection;

/// X11 has no permissions: every program may synthesise keys if the server has the XTest extension.
class X11Permissions final : public Permissions
{
public:
    /// @p connection must outlive this object. @p microphoneAuthorized asks the sound system.
    X11Permissions(X11Connection& connection, std::function<bool()> microphoneAuthorized);

    [[nodiscard]] bool microphoneAuthorized() const override { return microphoneAuthorized_(); }
    [[nodiscard]] bool trustedForAccessibility() const override;

private:
    X11Connection& connection_;
    std::function<bool()> microphoneAuthorized_;
};

} // namespace vantro
