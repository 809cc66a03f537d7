#pragma once

#include "platform/Permissions.h"

namespace vantro::doubles {

/// Permissions, all granted by default.
class FakePermissions final : public Permissions
{
public:
    bool microphone = true;
    bool accessibility = true;

    [[nodiscard]] bool microphoneAuthorized() const override { return microphone; }
    [[nodiscard]] bool trustedForAccessibility() const override { return accessibility; }
};

} // namespace vantro::doubles
