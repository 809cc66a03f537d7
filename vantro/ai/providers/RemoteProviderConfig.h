#pragma once

#include "vantro/ai/providers/ModelRequestParameters.h"
#include "vantro/ai/providers/RemoteProviderType.h"

#include <QString>

#include <optional>

namespace vantro {

/// What a remote service is created from.
struct RemoteProviderConfig
{
    RemoteProviderType provider = RemoteProviderType::OpenAI;
    QString model;
    std::optional<QString> customBaseURL;
    /// The key store account to take the key from.
    std::optional<QString> keychainIdentifierOverride;
    /// A key that is not stored yet; overrides the stored one.
    std::optional<QString> apiKeyOverride;
    std::optional<ModelRequestParameters> parameters;
};

} // namespace vantro
