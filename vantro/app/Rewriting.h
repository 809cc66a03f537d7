#pragma once

#include "base/Clock.h"
#include "base/network/HttpExchange.h"
#include "platform/Platform.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/ai/providers/KeychainService.h"
#include "vantro/ai/providers/ProviderConfigurationManager.h"
#include "vantro/ai/services/FormatServiceFactory.h"
#include "vantro/text/CleaningSettings.h"

#include <memory>
#include <optional>
#include <stop_token>

namespace vantro {

/// Everything needed to rewrite texts: the prompts of the modes, the providers with their keys, and the connection to
/// them. The constructor's arguments must outlive it. Main thread.
class Rewriting
{
public:
    Rewriting(UserDefaults& defaults, const Platform& platform, Clock& clock);

    [[nodiscard]] PromptSettings& prompts() { return prompts_; }
    [[nodiscard]] ProviderConfigurationManager& providers() { return providers_; }

    /// Retries a pending clean-up of API keys.
    void start();
    /// The language model of this machine.
    [[nodiscard]] LocalModel& local() { return local_; }
    [[nodiscard]] const LocalModel& local() const { return local_; }

    /// Whether @p mode is set up: Email, Grammar and Custom need an enabled provider or a language model on this
    /// machine, Custom and what the user has added a prompt as well, or rules instead of both. The key is not checked.
    [[nodiscard]] bool isUsable(ProcessingMode mode) const;
    /// The usable modes, in order: those that the launcher offers.
    [[nodiscard]] std::vector<ProcessingMode> visibleModes() const;

    /// Connects early to the provider of a mode that a running dictation is likely to use, or loads the model of this
    /// machine, which stays loaded as long as what is returned.
    [[nodiscard]] std::shared_ptr<void> expectUse(ProcessingMode mode) const;
    /// Returns the service for a dictation in @p mode, which already reads its key or loads its model if it needs one.
    /// @p stop ends its requests.
    [[nodiscard]] std::shared_ptr<FormatRequestServicing> choose(ProcessingMode mode, std::stop_token stop = {}) const;

    /// Cleans @p text without a language model where @p mode is set up so, by the rules of the text's language.
    [[nodiscard]] std::optional<QString> cleaned(ProcessingMode mode, const QString& text) const;
    [[nodiscard]] QString cleaned(const QString& text) const;
    [[nodiscard]] CleaningSettings& cleaning() { return cleaning_; }

    /// Has a text rewritten outside of a dictation. Throws Error, for the user to read.
    [[nodiscard]] QCoro::Task<QString> rewrite(ProcessingMode mode, QString text) const;
    /// The same with another choice of who does it. Throws what the service throws.
    [[nodiscard]] QCoro::Task<QString> rewrite(ProcessingMode mode, ModeConfiguration by, QString text) const;

    /// The accounts that have a key. Throws KeychainError.
    [[nodiscard]] QCoro::Task<QStringList> keyAccounts() { return keychain_.accounts(); }
    /// The last four characters of an account's key; nothing of a key so short that they would give it away. Throws
    /// KeychainError.
    [[nodiscard]] QCoro::Task<QString> keyEnding(QString account);
    /// Checks that @p provider accepts @p key, or the stored key if none is given. Throws Error.
    [[nodiscard]] QCoro::Task<> verify(ProviderConfiguration provider, std::optional<QString> key = {}) const;
    /// The models that @p provider offers, with the key as in verify(). Throws Error.
    [[nodiscard]] QCoro::Task<QStringList> offeredModels(ProviderConfiguration provider,
                                                         std::optional<QString> key = {}) const;

private:
    void adopt(const QUuid& provider);
    [[nodiscard]] bool asksModel(ProcessingMode mode) const;
    [[nodiscard]] std::shared_ptr<FormatRequestServicing> serviceFor(ProcessingMode mode, const ModeConfiguration& by,
                                                                     std::stop_token stop) const;

    const UserDefaults& defaults_;
    QObject context_; ///< of connections
    PromptSettings prompts_;
    CleaningSettings cleaning_;
    KeychainService keychain_;
    ProviderConfigurationManager providers_;
    HttpExchange http_;
    LocalModel local_;
    const LanguageRecognizer& languages_;
    FormatServiceFactory factory_;
};

} // namespace vantro
