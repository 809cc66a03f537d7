#pragma once

#include "base/testing/ManualClock.h"
#include "platform/testing/FakeSecretStore.h"
#include "tests/WaitFor.h"
#include "tests/ai/services/ChatServer.h"
#include "vantro/ai/AnswerSetAside.h"
#include "vantro/ai/providers/KeychainService.h"
#include "vantro/ai/providers/ProviderConfigurationManager.h"
#include "vantro/ai/services/FormatServiceFactory.h"
#include "vantro/ai/services/RemoteFormatError.h"

#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <exception>

namespace vantro {

inline const QString key = QStringLiteral("sk-0123456789-secret");
inline const QString account = QStringLiteral("provider-test");

/// Finds the language that the test names.
class NamedLanguage final : public LanguageRecognizer
{
public:
    std::optional<QString> code;
    [[nodiscard]] std::optional<QString> dominantLanguage(const QString& /*text*/,
                                                          const QString& /*hint*/) const override
    {
        return code;
    }
};

/// How a request ended, once it has.
struct Outcome
{
    bool isThere = false;
    QString text;
    std::exception_ptr failure;

    [[nodiscard]] QString description() const
    {
        try {
            if (failure)
                std::rethrow_exception(failure);
        } catch (const Error& error) {
            return error.localizedDescription();
        }
        return {};
    }
    [[nodiscard]] std::optional<AnswerSetAside::Doubt> doubt() const
    {
        try {
            if (failure)
                std::rethrow_exception(failure);
        } catch (const AnswerSetAside& error) {
            return error.doubt();
        } catch (const Error&) {
        }
        return std::nullopt;
    }
    [[nodiscard]] std::optional<RemoteFormatError::Kind> kind() const
    {
        try {
            if (failure)
                std::rethrow_exception(failure);
        } catch (const RemoteFormatError& error) {
            return error.kind();
        } catch (const Error&) {
        }
        return std::nullopt;
    }
};

template <typename Result>
QCoro::Task<> follow(QCoro::Task<Result> task, std::shared_ptr<Outcome> outcome)
{
    try {
        if constexpr (std::is_void_v<Result>)
            co_await task;
        else
            outcome->text = co_await task;
    } catch (...) {
        outcome->failure = std::current_exception();
    }
    outcome->isThere = true;
}

/// Services with a key in memory, a clock that stands still and a real server.
class FormatTest : public ::testing::Test
{
protected:
    FormatTest() { store.secrets[account] = key.toUtf8(); }

    [[nodiscard]] RemoteProviderConfig config(RemoteProviderType type) const
    {
        RemoteProviderConfig config;
        config.provider = type;
        config.model = QStringLiteral("model-1");
        config.keychainIdentifierOverride = account;
        config.customBaseURL = server.url() + QStringLiteral("/v1");
        return config;
    }

    [[nodiscard]] std::shared_ptr<RemoteFormatService> service(const RemoteProviderConfig& config,
                                                               std::stop_token stop = {})
    {
        return FormatServiceFactory(providers, local, parts, {server.url(), server.url(), server.url()})
            .makeRemote(config, std::move(stop));
    }

    template <typename Result>
    Outcome outcome(QCoro::Task<Result> task)
    {
        const auto outcome = begin(std::move(task));
        EXPECT_TRUE(waitFor([&] { return outcome->isThere; }));
        return *outcome;
    }

    template <typename Result>
    std::shared_ptr<Outcome> begin(QCoro::Task<Result> task)
    {
        auto outcome = std::make_shared<Outcome>();
        follow(std::move(task), outcome);
        return outcome;
    }

    Outcome format(RemoteProviderType type = RemoteProviderType::Custom) { return format(config(type)); }
    Outcome format(const RemoteProviderConfig& config)
    {
        return outcome(service(config)->format(QStringLiteral("Be brief."), QStringLiteral("hello wörld")));
    }

    ChatServer server;
    doubles::ManualClock clock;
    doubles::FakeSecretStore store;
    KeychainService keychain{store};
    NamedLanguage languages;
    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("settings.ini"))};
    ProviderConfigurationManager providers{defaults, keychain};
    HttpExchange http{clock};
    std::optional<quint64> availableMemory;
    LocalModel local{defaults, [this] { return availableMemory; }, {folder.filePath(QStringLiteral("models"))}};
    RemoteServiceParts parts{http, keychain, languages, clock};
};

} // namespace vantro
