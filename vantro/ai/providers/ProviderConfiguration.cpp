#include "vantro/ai/providers/ProviderConfiguration.h"

#include "vantro/ai/providers/ProviderHosts.h"

#include <QUrl>

#include <algorithm>

namespace vantro {

namespace {

const auto idKey = QStringLiteral("id");
const auto nameKey = QStringLiteral("name");
const auto providerTypeKey = QStringLiteral("providerType");
const auto modelKey = QStringLiteral("model");
const auto customBaseURLKey = QStringLiteral("customBaseURL");
const auto isEnabledKey = QStringLiteral("isEnabled");
const auto parametersKey = QStringLiteral("parameters");

bool isAbsent(const QJsonValue& value)
{
    return value.isUndefined() || value.isNull();
}

} // namespace

QString standardForm(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

QString keychainAccount(const QUuid& id)
{
    return QStringLiteral("provider-") + standardForm(id);
}

QString ProviderConfiguration::keychainAccount() const
{
    return vantro::keychainAccount(id);
}

std::optional<QString> ProviderConfiguration::strayAddress() const
{
    const auto standard = standardAddress(providerType);
    const bool isStray =
        standard && customBaseURL && !customBaseURL->isEmpty() && QUrl(*customBaseURL).host() != QUrl(*standard).host();
    return isStray ? customBaseURL : std::nullopt;
}

std::optional<QString> ProviderConfiguration::standardAddress(RemoteProviderType type)
{
    const auto all = defaults();
    const auto found = std::ranges::find(all, type, &ProviderConfiguration::providerType);
    return found != all.end() ? found->customBaseURL : std::nullopt;
}

RemoteProviderConfig ProviderConfiguration::remoteConfig() const
{
    return {.provider = providerType,
            .model = model,
            .customBaseURL = customBaseURL,
            .keychainIdentifierOverride = keychainAccount(),
            .apiKeyOverride = std::nullopt,
            .parameters = parameters};
}

QJsonObject ProviderConfiguration::toJson() const
{
    QJsonObject object{{idKey, standardForm(id)},
                       {nameKey, name},
                       {providerTypeKey, rawValue(providerType)},
                       {modelKey, model},
                       {isEnabledKey, isEnabled}};
    if (customBaseURL)
        object.insert(customBaseURLKey, *customBaseURL);
    if (parameters)
        object.insert(parametersKey, parameters->toJson());
    return object;
}

std::optional<ProviderConfiguration> ProviderConfiguration::fromJson(const QJsonObject& object)
{
    const QJsonValue url = object.value(customBaseURLKey);
    const QJsonValue stored = object.value(parametersKey);
    const auto type = remoteProviderType(object.value(providerTypeKey).toString());
    ProviderConfiguration configuration;
    configuration.id = QUuid(object.value(idKey).toString());
    const bool isSound = !configuration.id.isNull() && type && object.value(nameKey).isString() &&
                         object.value(modelKey).isString() && object.value(isEnabledKey).isBool() &&
                         (isAbsent(url) || url.isString()) && (isAbsent(stored) || stored.isObject());
    if (!isSound)
        return std::nullopt;
    configuration.name = object.value(nameKey).toString();
    configuration.providerType = *type;
    configuration.model = object.value(modelKey).toString();
    configuration.isEnabled = object.value(isEnabledKey).toBool();
    if (url.isString())
        configuration.customBaseURL = url.toString();
    if (stored.isObject()) {
        configuration.parameters = ModelRequestParameters::fromJson(stored.toObject());
        if (!configuration.parameters)
            return std::nullopt;
    }
    return configuration;
}

std::vector<ProviderConfiguration> ProviderConfiguration::defaults()
{
    const ProviderHosts hosts;
    const auto make = [](RemoteProviderType type, const char* model, const QString& endpoint) {
        ProviderConfiguration configuration;
        configuration.id = QUuid::createUuid();
        configuration.name = rawValue(type);
        configuration.providerType = type;
        configuration.model = QLatin1String(model);
        configuration.customBaseURL = endpoint;
        return configuration;
    };
    return {make(RemoteProviderType::OpenAI, "gpt-4.1-mini-2025-04-14",
                 hosts.openAI + QStringLiteral("/v1/chat/completions")),
            make(RemoteProviderType::Anthropic, "claude-opus-4-6", hosts.anthropic + QStringLiteral("/v1/messages")),
            make(RemoteProviderType::Gemini, "gemini-2.5-flash",
                 hosts.gemini + QStringLiteral("/v1beta/models/gemini-2.5-flash:generateContent"))};
}

} // namespace vantro
