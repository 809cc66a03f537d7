#pragma once

#include "platform/Permissions.h"

namespace vantro::doubles {

/// Permissions that the test grants and takes away; at first all are granted.
class FakePermissions final : public Permissions
{
public:
    bool microphone = true;
    bool accessibility = true;

    [[nodiscard]] bool microphoneAuthorized() const override { return microphone; }
    [[nodiscard]] bool trustedForAccessibility() const override { return accessibility; }
};

} // namespace vantro::doubles
