#pragma once

#include "base/UserDefaults.h"
#include "platform/Platform.h"
#include "vantro/ai/providers/ProviderForm.h"
#include "vantro/app/Rewriting.h"

#include <QCommandLineParser>

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
void addProviderOptions(QCommandLineParser& parser);

/// "vantro providers list".
int listProviders(ProvidersSession& session, bool json);
/// "vantro providers add": @p parser has the options.
int addProvider(ProvidersSession& session, const QCommandLineParser& parser);
int editProvider(ProvidersSession& session, const ProviderConfiguration& former, const QCommandLineParser& parser);
int removeProvider(ProvidersSession& session, const ProviderConfiguration& provider, const QCommandLineParser& parser);
/// "vantro providers test": one request with the stored key.
int testProvider(ProvidersSession& session, const ProviderConfiguration& provider, bool json);

/// What scripts read about a provider.
[[nodiscard]] QJsonObject providerJson(const ProviderConfiguration& provider);

} // namespace vantro
