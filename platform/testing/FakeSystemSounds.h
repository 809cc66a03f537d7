#pragma once

#include "platform/SystemSounds.h"

namespace vantro::doubles {

/// Counts instead of sounding.
class FakeSystemSounds final : public SystemSounds
{
public:
    void playCompleted() override { ++completed; }

    int completed = 0;
};

} // namespace vantro::doubles
