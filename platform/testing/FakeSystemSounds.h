#pragma once

#include "platform/SystemSounds.h"

#include <QStringList>

namespace vantro::doubles {

/// Notes instead of sounding.
class FakeSystemSounds final : public SystemSounds
{
public:
    void play(const QString& name) override { played << name; }

    QStringList played;
};

} // namespace vantro::doubles
