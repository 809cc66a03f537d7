#pragma once

#include <QUuid>

#include <optional>

namespace vantro {

/// Which language model a mode uses.
struct ModeConfiguration
{
    /// Use the model on this machine instead of a remote provider.
    bool useLocalAI = false;
    /// The provider to use when useLocalAI is false.
    std::optional<QUuid> providerConfigId = std::nullopt;
    /// Clean the text by rules instead, without a language model.
    bool cleans = false;

    bool operator==(const ModeConfiguration&) const = default;
};

} // namespace vantro
