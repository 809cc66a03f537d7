#pragma once

#include "base/UserDefaults.h"
#include "platform/Platform.h"
#include "vantro/ai/providers/ProviderForm.h"
#include "vantro/app/Rewriting.h"
#include "vantro/cli/Command.h"

namespace vantro {

/// What the provider commands work on.
struct ProvidersSession
{
    /// Finds a provider by id, name, or unambiguous beginning of its name; otherwise null.
    [[nodiscard]] const ProviderConfiguration* find(const QString& text) const;

    UserDefaults defaults{UserDefaults::standardPath()};
    Platform platform = makePlatform(PlatformPart::services);
    SystemClock clock;
    Rewriting rewriting{defaults, platform, clock};
    ProviderConfigurationManager& manager = rewriting.providers();
};

/// The options for a provider's settings.
std::vector<CommandOption> providerOptions();

/// The provider named by @p call. Throws CommandError when there is none.
[[nodiscard]] ProviderConfiguration providerFrom(const CommandCall& call, const ProvidersSession& session);
/// noService when the key store or the provider cannot be reached.
[[nodiscard]] int providersExitCode(const Error& error);

// "vantro providers" with its actions.
int listProviders(const CommandCall& call);
int addProvider(const CommandCall& call);
int editProvider(const CommandCall& call);
int removeProvider(const CommandCall& call);
/// Sends one request with the stored key.
int testProvider(const CommandCall& call);
/// Writes the models that the provider offers.
int offeredModels(const CommandCall& call);

/// The JSON output for a provider.
[[nodiscard]] QJsonObject providerJson(const ProviderConfiguration& provider);

} // namespace vantro
