#pragma once

#include <QUuid>

#include <optional>

namespace vantro {

/// Which language model serves a mode.
struct ModeConfiguration
{
    /// The service on this machine instead of a remote provider.
    bool useLocalAI = false;
    /// The provider configuration that is asked when useLocalAI is false.
    std::optional<QUuid> providerConfigId = std::nullopt;

    bool operator==(const ModeConfiguration&) const = default;
};

} // namespace vantro
