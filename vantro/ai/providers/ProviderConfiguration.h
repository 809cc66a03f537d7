#pragma once

#include "vantro/ai/providers/RemoteProviderConfig.h"

#include <QJsonObject>
#include <QString>
#include <QUuid>

#include <optional>
#include <vector>

namespace vantro {

/// One entry of the user's list of providers. Its API key lies in the key store, under the name of its id.
struct ProviderConfiguration
{
    QUuid id;
    QString name; ///< as the list shows it
    RemoteProviderType providerType = RemoteProviderType::OpenAI;
    QString model;
    std::optional<QString> customBaseURL;
    bool isEnabled = true;                            ///< a disabled one is never sent anything
    std::optional<ModelRequestParameters> parameters; ///< without any the service has its own defaults

    [[nodiscard]] bool operator==(const ProviderConfiguration&) const = default;

    /// "provider-" and the id.
    [[nodiscard]] QString keychainAccount() const;
    /// For a service that uses the stored key.
    [[nodiscard]] RemoteProviderConfig remoteConfig() const;

    [[nodiscard]] QJsonObject toJson() const;
    /// Nothing when a member is missing or of another type.
    [[nodiscard]] static std::optional<ProviderConfiguration> fromJson(const QJsonObject& object);
    /// What a new installation has: one for each public provider, with new ids.
    [[nodiscard]] static std::vector<ProviderConfiguration> defaults();
};

/// As ids are stored and shown: upper case, without braces.
QString standardForm(const QUuid& id);
/// "provider-" and @p id in its standard form, the name of its key in the key store.
QString keychainAccount(const QUuid& id);

} // namespace vantro
