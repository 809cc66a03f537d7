#pragma once

#include "base/Clock.h"
#include "base/network/HttpExchange.h"
#include "platform/Platform.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/ai/providers/KeychainService.h"
#include "vantro/ai/providers/ProviderConfigurationManager.h"
#include "vantro/ai/services/FormatServiceFactory.h"

#include <memory>
#include <optional>
#include <stop_token>

namespace vantro {

/// Everything that texts are rewritten with: the modes' prompts, the providers of language models with their keys, and
/// the exchange with them. What the arguments of the constructor refer to outlives it. Main thread.
class Rewriting
{
public:
    Rewriting(UserDefaults& defaults, const Platform& platform, Clock& clock);

    [[nodiscard]] PromptSettings& prompts() { return prompts_; }
    [[nodiscard]] ProviderConfigurationManager& providers() { return providers_; }

    /// Makes up for a clean-up of keys that could not be done before.
    void start();
    /// Whether a dictation can end in @p mode: one that a language model rewrites needs a provider that is there and
    /// enabled, and Custom a prompt. Whether the provider has a key is known only when it is asked.
    [[nodiscard]] bool isUsable(ProcessingMode mode) const;
    /// The modes that the launcher offers, in their order: those that can be used, and @p defaultMode, so that a
    /// default that cannot work says so.
    [[nodiscard]] std::vector<ProcessingMode> visibleModes(ProcessingMode defaultMode) const;

    /// A dictation has begun that may end in @p mode: the way to its provider is opened.
    void expectUse(ProcessingMode mode) const;
    /// The service of a dictation that ends in @p mode, already reading its key when it will be asked. @p stop ends its
    /// requests.
    [[nodiscard]] std::shared_ptr<FormatRequestServicing> choose(ProcessingMode mode, std::stop_token stop = {}) const;

    /// The key store's accounts that have a key; throws KeychainError.
    [[nodiscard]] QCoro::Task<QStringList> keyAccounts() { return keychain_.accounts(); }
    /// Asks @p provider whether it accepts @p key, or without one the stored key. Throws Error.
    [[nodiscard]] QCoro::Task<> verify(ProviderConfiguration provider, std::optional<QString> key = {}) const;

private:
    [[nodiscard]] bool asksModel(ProcessingMode mode) const;

    PromptSettings prompts_;
    KeychainService keychain_;
    ProviderConfigurationManager providers_;
    HttpExchange http_;
    FormatServiceFactory factory_;
};

} // namespace vantro
