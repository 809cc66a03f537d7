#pragma once

#include "base/Clock.h"
#include "platform/Platform.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/ai/providers/KeychainService.h"
#include "vantro/ai/providers/ProviderConfigurationManager.h"
#include "vantro/ai/services/FormatServiceFactory.h"

#include <memory>

namespace vantro {

/// The running program's language models: providers, their keys, and the exchange with them. Main thread.
class LanguageModels
{
public:
    LanguageModels(UserDefaults& defaults, const Platform& platform, Clock& clock, const PromptSettings& prompts);

    /// Makes up for a clean-up of keys that could not be done before.
    void start();
    /// A dictation has begun that may end in @p mode: the way to its provider is opened.
    void expectUse(ProcessingMode mode) const;
    /// The service of a dictation that ends in @p mode, already reading its key when it will be asked.
    /// @p stop ends its requests.
    [[nodiscard]] std::shared_ptr<FormatRequestServicing> choose(ProcessingMode mode, std::stop_token stop = {}) const;

    [[nodiscard]] ProviderConfigurationManager& providers() { return providers_; }
    /// The key store's accounts that have a key; throws KeychainError.
    [[nodiscard]] QCoro::Task<QStringList> keyAccounts() { return keychain_.accounts(); }
    /// Asks @p provider whether it accepts @p key, or without one the stored key. Throws Error.
    [[nodiscard]] QCoro::Task<> verify(ProviderConfiguration provider, std::optional<QString> key) const;

private:
    [[nodiscard]] bool asksModel(ProcessingMode mode) const;

    const PromptSettings& prompts_;
    KeychainService keychain_;
    ProviderConfigurationManager providers_;
    HttpExchange http_;
    FormatServiceFactory factory_;
};

} // namespace vantro
