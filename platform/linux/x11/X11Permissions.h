#pragma once

#include "platform/Permissions.h"

#include <functional>

namespace vantro {

class X11Connection;

/// Every X11 program may synthesise keys where the server has the XTest extension; there is nobody to ask.
class X11Permissions final : public Permissions
{
public:
    /// @p connection must outlive this object. @p microphoneAuthorized is the sound system's word.
    X11Permissions(X11Connection& connection, std::function<bool()> microphoneAuthorized);

    [[nodiscard]] bool microphoneAuthorized() const override { return microphoneAuthorized_(); }
    [[nodiscard]] bool trustedForAccessibility() const override;

private:
    X11Connection& connection_;
    std::function<bool()> microphoneAuthorized_;
};

} // namespace vantro
