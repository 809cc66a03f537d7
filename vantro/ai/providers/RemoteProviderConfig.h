#pragma once

#include "vantro/ai/providers/ModelRequestParameters.h"
#include "vantro/ai/providers/RemoteProviderType.h"

#include <QString>

#include <optional>

namespace vantro {

/// What a remote service is made with.
struct RemoteProviderConfig
{
    RemoteProviderType provider = RemoteProviderType::OpenAI;
    QString model;
    std::optional<QString> customBaseURL;
    /// The key store's account whose key is used.
    std::optional<QString> keychainIdentifierOverride;
    /// A key that was typed and is not stored yet; goes before the stored one.
    std::optional<QString> apiKeyOverride;
    std::optional<ModelRequestParameters> parameters;
};

} // namespace vantro
