#pragma once

#include "vantro/ai/providers/RemoteProviderConfig.h"

#include <QJsonObject>
#include <QString>
#include <QUuid>

#include <optional>
#include <vector>

namespace vantro {

/// An entry of the user's list of providers. Its API key is in the key store, under keychainAccount().
struct ProviderConfiguration
{
    QUuid id;
    QString name; ///< shown in the list
    RemoteProviderType providerType = RemoteProviderType::OpenAI;
    QString model;
    std::optional<QString> customBaseURL;
    bool isEnabled = true;                            ///< nothing is sent to a disabled one
    std::optional<ModelRequestParameters> parameters; ///< when absent, the service uses its defaults

    [[nodiscard]] bool operator==(const ProviderConfiguration&) const = default;

    /// "provider-" and the id.
    [[nodiscard]] QString keychainAccount() const;
    /// An address that was given for a public provider, which is always asked at its own; nullopt when there is none.
    [[nodiscard]] std::optional<QString> strayAddress() const;
    /// Where a public provider is asked; nullopt for the type Custom.
    [[nodiscard]] static std::optional<QString> standardAddress(RemoteProviderType type);
    /// For a service with the stored key.
    [[nodiscard]] RemoteProviderConfig remoteConfig() const;

    [[nodiscard]] QJsonObject toJson() const;
    /// Nullopt when a member is missing or has the wrong type.
    [[nodiscard]] static std::optional<ProviderConfiguration> fromJson(const QJsonObject& object);
    /// The list of a new installation: one entry per public provider, with new ids.
    [[nodiscard]] static std::vector<ProviderConfiguration> defaults();
};

/// The stored and displayed form of an id: upper case, no braces.
QString standardForm(const QUuid& id);
/// "provider-" and @p id in its standard form, the name of its key in the key store.
QString keychainAccount(const QUuid& id);

} // namespace vantro
