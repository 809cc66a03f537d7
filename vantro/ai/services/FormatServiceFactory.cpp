#include "vantro/ai/services/FormatServiceFactory.h"

#include "platform/Wording.h"
#include "vantro/ai/services/AnthropicService.h"
#include "vantro/ai/services/CustomOpenAICompatibleService.h"
#include "vantro/ai/services/GeminiService.h"
#include "vantro/ai/services/LocalFormatService.h"
#include "vantro/ai/services/OpenAICompatibleService.h"

#include <utility>

namespace vantro {

FormatServiceFactory::FormatServiceFactory(const ProviderConfigurationManager& providers, LocalModel& local,
                                           RemoteServiceParts parts, ProviderHosts hosts)
    : providers_(providers)
    , local_(local)
    , parts_(parts)
    , hosts_(std::move(hosts))
{
}

std::shared_ptr<FormatRequestServicing>
FormatServiceFactory::make(ProcessingMode mode, const ModeConfiguration& configuration, std::stop_token stop) const
{
    if (const auto* chosen = provider(configuration)) {
        printLine(
            QStringLiteral("Using remote service (%1) for %2").arg(displayName(chosen->providerType), rawValue(mode)));
        return makeRemote(chosen->remoteConfig(), std::move(stop));
    }
    const auto* model = local_.models().chosen();
    if (!configuration.useLocalAI)
        printLine(QStringLiteral("No provider configuration for %1, falling back to local").arg(rawValue(mode)));
    else if (model == nullptr)
        printLine(QStringLiteral("LocalFormatService unavailable for %1: %2")
                      .arg(rawValue(mode), wording::localProcessingNeeds()));
    if (model != nullptr)
        printLine(QStringLiteral("Using this computer (%1) for %2").arg(model->name, rawValue(mode)));
    return std::make_shared<LocalFormatService>(local_, parts_.languages, std::move(stop));
}

std::shared_ptr<void> FormatServiceFactory::expect(const ModeConfiguration& configuration, const QString& prompt) const
{
    if (const auto* chosen = provider(configuration)) {
        makeRemote(chosen->remoteConfig())->preconnect();
        return {};
    }
    return local_.expect(LocalFormatService::instruction(prompt));
}

bool FormatServiceFactory::isUsable(const ModeConfiguration& configuration) const
{
    return provider(configuration) != nullptr ||
           ((configuration.useLocalAI || !configuration.providerConfigId) && local_.models().chosen() != nullptr);
}

const ProviderConfiguration* FormatServiceFactory::provider(const ModeConfiguration& configuration) const
{
    if (configuration.useLocalAI || !configuration.providerConfigId)
        return nullptr;
    const auto* found = providers_.find(*configuration.providerConfigId);
    return found != nullptr && found->isEnabled ? found : nullptr;
}

std::shared_ptr<RemoteFormatService> FormatServiceFactory::makeRemote(const RemoteProviderConfig& config,
                                                                      std::stop_token stop) const
{
    RemoteServiceParts parts = parts_;
    parts.stop = std::move(stop);
    switch (config.provider) {
    case RemoteProviderType::OpenAI:
        return std::make_shared<OpenAICompatibleService>(parts, config, hosts_);
    case RemoteProviderType::Anthropic:
        return std::make_shared<AnthropicService>(parts, config, hosts_);
    case RemoteProviderType::Gemini:
        return std::make_shared<GeminiService>(parts, config, hosts_);
    case RemoteProviderType::Custom:
        return std::make_shared<CustomOpenAICompatibleService>(parts, config);
    }
    Q_UNREACHABLE();
}

} // namespace vantro
