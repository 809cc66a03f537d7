#include "vantro/app/Rewriting.h"

#include "base/Error.h"
#include "vantro/ai/answers/CheckedFormatService.h"
#include "vantro/app/ProcessingErrorMessage.h"

#include <utility>

namespace vantro {

Rewriting::Rewriting(UserDefaults& defaults, const Platform& platform, Clock& clock)
    : prompts_(defaults)
    , keychain_(*platform.secrets)
    , providers_(defaults, keychain_)
    , http_(clock)
    , local_(defaults, [&system = *platform.systemInfo] { return system.availableMemoryBytes(); })
    , languages_(*platform.languages)
    , factory_(providers_, local_, {http_, keychain_, languages_})
{
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
    if (mode == ProcessingMode::Custom && prompts_.prompt(mode).isEmpty())
        return false;
    return factory_.isUsable(prompts_.configuration(mode));
}

std::vector<ProcessingMode> Rewriting::visibleModes() const
{
    std::vector<ProcessingMode> modes;
    for (const ProcessingMode mode : allProcessingModes) {
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
    const auto service = std::make_shared<CheckedFormatService>(
        factory_.make(mode, prompts_.configuration(mode), std::move(stop)), languages_);
    if (asksModel(mode))
        service->prepare(prompts_.prompt(mode));
    return service;
}

QCoro::Task<QString> Rewriting::rewrite(ProcessingMode mode, QString text) const
{
    try {
        const auto service = choose(mode);
        const auto formatting = service->format(prompts_.prompt(mode), text);
        QString rewritten = co_await formatting;
        co_return rewritten;
    } catch (const std::exception& error) {
        throw Error(processingErrorMessage(error));
    }
}

QCoro::Task<> Rewriting::verify(ProviderConfiguration provider, std::optional<QString> key) const
{
    RemoteProviderConfig config = provider.remoteConfig();
    config.apiKeyOverride = std::move(key);
    const auto service = factory_.makeRemote(config);
    const auto verified = service->verifyCredentials(provider.keychainAccount());
    co_await verified;
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
    return !prompts_.prompt(mode).isEmpty();
}

} // namespace vantro
