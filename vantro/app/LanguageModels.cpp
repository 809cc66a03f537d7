#include "vantro/app/LanguageModels.h"

#include <utility>

namespace vantro {

LanguageModels::LanguageModels(UserDefaults& defaults, const Platform& platform, Clock& clock,
                               const PromptSettings& prompts)
    : prompts_(prompts)
    , keychain_(*platform.secrets)
    , providers_(defaults, keychain_)
    , http_(clock)
    , factory_(providers_, {http_, keychain_, *platform.languages})
{
}

void LanguageModels::start()
{
    if (providers_.isCleanUpDue())
        providers_.cleanUpWhenPossible();
}

void LanguageModels::expectUse(ProcessingMode mode) const
{
    if (asksModel(mode))
        factory_.preconnect(prompts_.configuration(mode));
}

std::shared_ptr<FormatRequestServicing> LanguageModels::choose(ProcessingMode mode, std::stop_token stop) const
{
    auto service = factory_.make(mode, prompts_.configuration(mode), std::move(stop));
    if (asksModel(mode))
        service->prepare();
    return service;
}

QCoro::Task<> LanguageModels::verify(ProviderConfiguration provider, std::optional<QString> key) const
{
    RemoteProviderConfig config = provider.remoteConfig();
    config.apiKeyOverride = std::move(key);
    const auto service = factory_.makeRemote(config);
    const auto verified = service->verifyCredentials(provider.keychainAccount());
    co_await verified;
}

bool LanguageModels::asksModel(ProcessingMode mode) const
{
    // Normal has no prompt, and Custom asks nobody as long as it has none.
    return !prompts_.prompt(mode).isEmpty();
}

} // namespace vantro
