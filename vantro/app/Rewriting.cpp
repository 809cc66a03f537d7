#include "vantro/app/Rewriting.h"

#include "base/Error.h"
#include "base/Settings.h"
#include "vantro/ai/answers/CheckedFormatService.h"
#include "vantro/app/ProcessingErrorMessage.h"

#include <utility>

namespace vantro {

Rewriting::Rewriting(UserDefaults& defaults, const Platform& platform, Clock& clock)
    : defaults_(defaults)
    , prompts_(defaults)
    , cleaning_(defaults)
    , keychain_(*platform.secrets)
    , providers_(defaults, keychain_)
    , http_(clock)
    , local_(defaults, [&system = *platform.systemInfo] { return system.availableMemoryBytes(); })
    , languages_(*platform.languages)
    , factory_(providers_, local_, {http_, keychain_, languages_, clock})
{
    QObject::connect(&providers_, &ProviderConfigurationManager::keyStored, &context_,
                     [this](const QUuid& id) { adopt(id); });
}

/// The first provider that can be asked serves the modes that nobody has set up yet.
void Rewriting::adopt(const QUuid& provider)
{
    for (const ProcessingMode mode : {ProcessingMode::Email, ProcessingMode::Grammar}) {
        const ModeConfiguration configuration = prompts_.configuration(mode);
        if (configuration == ModeConfiguration())
            prompts_.setConfiguration(mode, {.providerConfigId = provider});
    }
}

void Rewriting::start()
{
    if (providers_.isCleanUpDue())
        providers_.cleanUpWhenPossible();
}

bool Rewriting::isUsable(ProcessingMode mode) const
{
    if (mode == ProcessingMode::Normal || mode == ProcessingMode::Notes)
        return true;
    const ModeConfiguration configuration = prompts_.configuration(mode);
    if (!prompts_.exists(mode))
        return false;
    if (configuration.cleans)
        return true;
    if (isOwnMode(mode) && prompts_.prompt(mode).isEmpty())
        return false;
    return factory_.isUsable(configuration);
}

std::vector<ProcessingMode> Rewriting::visibleModes() const
{
    std::vector<ProcessingMode> modes;
    for (const ProcessingMode mode : prompts_.modes()) {
        if (isUsable(mode))
            modes.push_back(mode);
    }
    return modes;
}

std::shared_ptr<void> Rewriting::expectUse(ProcessingMode mode) const
{
    return asksModel(mode) ? factory_.expect(prompts_.configuration(mode), prompts_.prompt(mode)) : nullptr;
}

std::shared_ptr<FormatRequestServicing> Rewriting::choose(ProcessingMode mode, std::stop_token stop) const
{
    const auto service = serviceFor(mode, prompts_.configuration(mode), std::move(stop));
    if (asksModel(mode))
        service->prepare(prompts_.prompt(mode));
    return service;
}

std::shared_ptr<FormatRequestServicing> Rewriting::serviceFor(ProcessingMode mode, const ModeConfiguration& by,
                                                              std::stop_token stop) const
{
    const auto* provider = by.providerConfigId ? providers_.find(*by.providerConfigId) : nullptr;
    const auto service = std::make_shared<CheckedFormatService>(factory_.make(mode, by, std::move(stop)), languages_,
                                                                provider != nullptr ? provider->name : QString());
    const QString language = defaults_.get(setting::selectedLanguage);
    if (language != QLatin1String(setting::selectedLanguage.absent))
        service->expectLanguage(language);
    return service;
}

std::optional<QString> Rewriting::cleaned(ProcessingMode mode, const QString& text) const
{
    return prompts_.configuration(mode).cleans ? std::optional(cleaned(text)) : std::nullopt;
}

QString Rewriting::cleaned(const QString& text) const
{
    const QString set = defaults_.get(setting::selectedLanguage);
    const QString likely = set == QLatin1String(setting::selectedLanguage.absent) ? QString() : set;
    return TextCleaner::cleaned(text, cleaning_.rules(languages_.dominantLanguage(text, likely).value_or(likely)));
}

QCoro::Task<QString> Rewriting::rewrite(ProcessingMode mode, QString text) const
{
    try {
        const auto rewriting = rewrite(mode, prompts_.configuration(mode), text);
        QString rewritten = co_await rewriting;
        co_return rewritten;
    } catch (const std::exception& error) {
        throw Error(processingErrorMessage(error));
    }
}

QCoro::Task<QString> Rewriting::rewrite(ProcessingMode mode, ModeConfiguration by, QString text) const
{
    if (by.cleans)
        co_return cleaned(text);
    const auto service = serviceFor(mode, by, {});
    const auto formatting = service->format(prompts_.prompt(mode), text);
    QString rewritten = co_await formatting;
    co_return rewritten;
}

QCoro::Task<> Rewriting::verify(ProviderConfiguration provider, std::optional<QString> key) const
{
    RemoteProviderConfig config = provider.remoteConfig();
    config.apiKeyOverride = std::move(key);
    const auto service = factory_.makeRemote(config);
    const auto verified = service->verifyCredentials(provider.keychainAccount());
    co_await verified;
}

QCoro::Task<QStringList> Rewriting::offeredModels(ProviderConfiguration provider, std::optional<QString> key) const
{
    RemoteProviderConfig config = provider.remoteConfig();
    config.apiKeyOverride = std::move(key);
    const auto service = factory_.makeRemote(config);
    const auto asked = service->models(provider.keychainAccount());
    const QStringList names = co_await asked;
    co_return names;
}

QCoro::Task<QString> Rewriting::keyEnding(QString account)
{
    constexpr qsizetype shownCharacters = 4;
    constexpr qsizetype leastLength = 16;
    const auto reading = keychain_.read(account);
    const std::optional<QString> key = co_await reading;
    co_return key && key->size() >= leastLength ? key->right(shownCharacters) : QString();
}

bool Rewriting::asksModel(ProcessingMode mode) const
{
    // Normal has no prompt; Custom may have none.
    return !prompts_.prompt(mode).isEmpty() && !prompts_.configuration(mode).cleans;
}

} // namespace vantro
