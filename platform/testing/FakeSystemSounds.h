#pragma once

#include "platform/SystemSounds.h"

#include <QStringList>

namespace vantro::doubles {

/// Records sounds instead of playing them.
class FakeSystemSounds final : public SystemSounds
{
public:
    void play(const QString& name) override { played << name; }

    QStringList played;
};

} // namespace vantro::doubles
