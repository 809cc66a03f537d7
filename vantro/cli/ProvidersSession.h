#pragma once

#include "base/UserDefaults.h"
#include "platform/Platform.h"
#include "vantro/ai/providers/ProviderForm.h"
#include "vantro/app/Rewriting.h"
#include "vantro/cli/Command.h"

namespace vantro {

/// What the commands about providers work on.
struct ProvidersSession
{
    /// An entry by its id, its name, or the beginning of its name when no other begins so; null else.
    [[nodiscard]] const ProviderConfiguration* find(const QString& text) const;

    UserDefaults defaults{UserDefaults::standardPath()};
    Platform platform = makePlatform(PlatformPart::services);
    SystemClock clock;
    Rewriting rewriting{defaults, platform, clock};
    ProviderConfigurationManager& manager = rewriting.providers();
};

/// The options that say what a provider's settings shall be.
std::vector<CommandOption> providerOptions();

/// The provider that @p call names; throws CommandError when there is none.
[[nodiscard]] ProviderConfiguration providerFrom(const CommandCall& call, const ProvidersSession& session);
/// noService when the key store or the provider does not answer.
[[nodiscard]] int providersExitCode(const Error& error);

// "vantro providers" with its actions.
int listProviders(const CommandCall& call);
int addProvider(const CommandCall& call);
int editProvider(const CommandCall& call);
int removeProvider(const CommandCall& call);
/// One request with the stored key.
int testProvider(const CommandCall& call);

/// What scripts read about a provider.
[[nodiscard]] QJsonObject providerJson(const ProviderConfiguration& provider);

} // namespace vantro
