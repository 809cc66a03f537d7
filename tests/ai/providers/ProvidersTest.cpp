// The list of providers, its stored form, the rules of its form, and the keys that belong to it.
#include "base/RunTask.h"
#include "base/Settings.h"
#include "platform/testing/FakeSecretStore.h"
#include "vantro/ai/providers/KeychainError.h"
#include "vantro/ai/providers/KeychainService.h"
#include "vantro/ai/providers/LegacyKeyName.h"
#include "vantro/ai/providers/ProviderConfigurationManager.h"
#include "vantro/ai/providers/ProviderForm.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace vantro;

namespace {

class Providers : public ::testing::Test
{
protected:
    [[nodiscard]] QJsonArray stored() const
    {
        return QJsonDocument::fromJson(defaults.get(setting::providerConfigurations)).array();
    }

    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("settings.ini"))};
    doubles::FakeSecretStore store;
    KeychainService keychain{store};
};

QString messages(const ProviderForm& form)
{
    QStringList lines;
    for (const auto& problem : form.problems())
        lines << problem.message;
    return lines.join(QLatin1Char('|'));
}

/// What a task of the key store throws.
template <typename Result>
std::optional<KeychainError::Kind> failure(QCoro::Task<Result> task)
{
    try {
        runTask(std::move(task));
    } catch (const KeychainError& error) {
        return error.kind();
    }
    return std::nullopt;
}

} // namespace

TEST_F(Providers, ANewListHasThePublicOnesAndKeepsTheirIds)
{
    std::vector<ProviderConfiguration> first;
    {
        const ProviderConfigurationManager manager(defaults, keychain);
        first = manager.configurations();
    }
    ASSERT_EQ(first.size(), 3U);
    const auto expect = [&](std::size_t index, const char* name, const char* model, const char* url) {
        EXPECT_EQ(first[index].name, QLatin1String(name));
        EXPECT_EQ(rawValue(first[index].providerType), QLatin1String(name));
        EXPECT_EQ(first[index].model, QLatin1String(model));
        EXPECT_EQ(first[index].customBaseURL, QLatin1String(url));
        EXPECT_TRUE(first[index].isEnabled);
        EXPECT_FALSE(first[index].parameters);
    };
    expect(0, "OpenAI", "gpt-4.1-mini-2025-04-14", "https://api.openai.com/v1/chat/completions");
    expect(1, "Anthropic", "claude-opus-4-6", "https://api.anthropic.com/v1/messages");
    expect(2, "Gemini", "gemini-2.5-flash",
           "https://generativelanguage.googleapis.com/v1beta/models/gemini-2.5-flash:generateContent");
    EXPECT_EQ(ProviderConfigurationManager(defaults, keychain).configurations(), first);
}

TEST_F(Providers, TheStoredFormHasTheFieldsUnderTheirNames)
{
    const auto text = QStringLiteral(R"([{"id": "6F9619FF-8B86-4D01-B42D-00CF4FC964FF", "name": "At home",
        "providerType": "Custom", "model": "llama3", "customBaseURL": "http://h:1/v1", "isEnabled": false,
        "parameters": {"maxTokens": 5, "temperature": 0.25, "reasoningEffort": "low"}},
        {"id": "6f9619ff-8b86-4d01-b42d-00cf4fc964fe", "name": "Plain", "providerType": "Google Gemini", "model": "g",
        "isEnabled": true}])");
    defaults.set(setting::providerConfigurations, text.toUtf8());
    ProviderConfigurationManager manager(defaults, keychain);
    ASSERT_EQ(manager.configurations().size(), 2U);
    const ProviderConfiguration& home = manager.configurations().front();
    EXPECT_EQ(home.keychainAccount(), QStringLiteral("provider-6F9619FF-8B86-4D01-B42D-00CF4FC964FF"));
    EXPECT_EQ(home.parameters->maxTokens, 5);
    EXPECT_EQ(home.parameters->temperature, 0.25);
    EXPECT_EQ(home.parameters->topP, std::nullopt);
    EXPECT_EQ(manager.configurations()[1].providerType, RemoteProviderType::Gemini);

    manager.save();
    const QJsonArray expected = QJsonDocument::fromJson(text.toUtf8()).array();
    EXPECT_EQ(stored().at(0), expected.at(0));
    EXPECT_EQ(stored().at(1).toObject().keys(),
              (QStringList{QStringLiteral("id"), QStringLiteral("isEnabled"), QStringLiteral("model"),
                           QStringLiteral("name"), QStringLiteral("providerType")}))
        << "what is not set is not there";
}

TEST_F(Providers, AListThatCannotBeReadIsKeptAsideAndNoKeyIsLost)
{
    store.secrets[QStringLiteral("provider-6F9619FF-8B86-4D01-B42D-00CF4FC964FF")] = "sk";
    for (const char* damaged :
         {"{", "[1]", R"([{"id": "x", "name": "", "providerType": "OpenAI", "model": "", "isEnabled": true}])",
          R"([{"id": "6f9619ff-8b86-4d01-b42d-00cf4fc964ff", "name": "n", "providerType": "Other", "model": "m",
               "isEnabled": true}])",
          R"([{"id": "6f9619ff-8b86-4d01-b42d-00cf4fc964ff", "name": "n", "providerType": "OpenAI", "model": "m",
               "isEnabled": true, "parameters": {"maxTokens": "5"}}])"}) {
        defaults.set(setting::providerConfigurations, damaged);
        ProviderConfigurationManager manager(defaults, keychain);
        EXPECT_EQ(manager.configurations().size(), 3U) << damaged;
        EXPECT_EQ(defaults.read<QByteArray>(QStringLiteral("providerConfigurations.unreadable")), QByteArray(damaged));
        EXPECT_EQ(stored().size(), 3) << damaged;
        defaults.remove(QStringLiteral("providerConfigurations.unreadable"));
        manager.remove(manager.configurations().front().id);
        EXPECT_EQ(failure(manager.cleanUpOrphanedKeys()), std::nullopt);
        EXPECT_EQ(store.secrets.size(), 1U);
    }
}

TEST_F(Providers, AKeyStaysWithItsConfigurationAndGoesAfterIt)
{
    ProviderConfigurationManager manager(defaults, keychain);
    ProviderConfiguration first = manager.configurations()[0];
    const ProviderConfiguration second = manager.configurations()[1];
    EXPECT_EQ(failure(manager.storeKey(first.id, QStringLiteral("one"))), std::nullopt);
    EXPECT_EQ(failure(manager.storeKey(second.id, QStringLiteral("two"))), std::nullopt);
    const auto otherProfiles = QStringLiteral("provider-6F9619FF-8B86-4D01-B42D-00CF4FC964FF");
    store.secrets[otherProfiles] = "three";
    first.name = QStringLiteral("Renamed");
    first.providerType = RemoteProviderType::Custom;
    manager.update(first);
    EXPECT_EQ(store.secrets.at(first.keychainAccount()), QByteArray("one"));

    manager.remove(second.id);
    EXPECT_TRUE(manager.isCleanUpDue());
    store.fault = SecretStoreError(SecretStoreError::Kind::locked, QStringLiteral("Unlock it."));
    EXPECT_EQ(failure(manager.cleanUpWhenPossible()), std::nullopt);
    EXPECT_TRUE(manager.isCleanUpDue()) << "what could not be done is done later";
    store.fault.reset();
    EXPECT_EQ(failure(manager.cleanUpWhenPossible()), std::nullopt);
    EXPECT_FALSE(manager.isCleanUpDue());
    EXPECT_EQ(store.secrets.size(), 2U);
    EXPECT_TRUE(store.secrets.contains(otherProfiles)) << "two profiles share one key store";
    EXPECT_FALSE(store.secrets.contains(second.keychainAccount()));
    manager.remove(manager.configurations().back().id);
    EXPECT_EQ(failure(manager.cleanUpOrphanedKeys()), std::nullopt) << "it never had a key";
    EXPECT_FALSE(manager.isCleanUpDue());
}

TEST_F(Providers, AKeyThatIsNoTextIsRefusedBothWays)
{
    EXPECT_EQ(failure(keychain.save(QString(QChar(0xd800)), QStringLiteral("a"))), KeychainError::Kind::encodingFailed);
    EXPECT_EQ(failure(keychain.save({}, QStringLiteral("a"))), KeychainError::Kind::encodingFailed);
    store.secrets[QStringLiteral("a")] = "\xff\xfe";
    EXPECT_EQ(failure(keychain.read(QStringLiteral("a"))), KeychainError::Kind::decodingFailed);
    EXPECT_EQ(failure(keychain.remove(QStringLiteral("b"))), KeychainError::Kind::itemNotFound);
    store.fault = SecretStoreError(SecretStoreError::Kind::unavailable, QStringLiteral("Install one."));
    EXPECT_EQ(failure(keychain.read(QStringLiteral("a"))), KeychainError::Kind::serviceMissing);
    EXPECT_EQ(KeychainError(KeychainError::Kind::unexpectedStatus, QStringLiteral("-34018")).localizedDescription(),
              QStringLiteral("Keychain error: -34018"));
}

TEST(ProviderForm, RefusesWhatAProviderWouldRefuse)
{
    ProviderForm form;
    form.name = QStringLiteral("Mine");
    form.model = QStringLiteral("m");
    EXPECT_EQ(messages(form), QString());
    form.type = RemoteProviderType::Custom;
    EXPECT_EQ(messages(form), QStringLiteral("URL is required for custom provider"));
    for (const char* wrong : {"localhost:8000/v1", "ftp://h/v1", "http://", "http://u:p@h/v1", "https://h/v1?key=1",
                              "http://h:port/v1", "http://a b"}) {
        form.baseURL = QLatin1String(wrong);
        EXPECT_EQ(messages(form), QStringLiteral("Invalid URL format")) << wrong;
    }
    for (const char* address : {" http://[::1]:8000/v1/ ", "http://[::1]:8000/v1/chat/completions/"}) {
        form.baseURL = QLatin1String(address);
        EXPECT_EQ(messages(form), QString());
        EXPECT_EQ(form.applied({}).customBaseURL, QStringLiteral("http://[::1]:8000/v1"));
    }

    form.maxTokens = QStringLiteral("1.5");
    form.temperature = QStringLiteral("warm");
    form.topP = QStringLiteral("nan");
    EXPECT_EQ(messages(form), QStringLiteral("must be a whole number|must be a number|must be a number"));
    form.maxTokens = QStringLiteral("-5");
    form.temperature = QStringLiteral("-1");
    form.topP = QStringLiteral("1.5");
    EXPECT_EQ(messages(form), QStringLiteral("must be at least 1|must be between 0 and 2|must be between 0 and 1"));
    form.maxTokens = QStringLiteral(" 100 ");
    form.temperature = QStringLiteral("0.2");
    form.topP = QString();
    form.maxCompletionTokens = QStringLiteral("5");
    EXPECT_EQ(messages(form), QStringLiteral("Set either max tokens or max completion tokens, not both — the API "
                                             "rejects requests carrying both."));
    form.maxCompletionTokens.clear();
    EXPECT_EQ(messages(form), QString());
    const ProviderConfiguration configuration = form.applied({});
    EXPECT_EQ(configuration.parameters->maxTokens, 100);
    EXPECT_EQ(configuration.parameters->temperature, 0.2);
    EXPECT_EQ(ProviderForm(configuration).applied(configuration), configuration)
        << "a form changes only what it is told";
    form.maxTokens.clear();
    form.temperature.clear();
    EXPECT_EQ(form.applied(configuration).parameters, std::nullopt) << "without any, the service has its own defaults";
    form.sendsStandardParameters = false;
    ProviderConfiguration bare = form.applied(configuration);
    bare.id = QUuid::createUuid();
    EXPECT_EQ(bare.parameters, ModelRequestParameters()) << "not even those";
    EXPECT_EQ(ProviderForm(*ProviderConfiguration::fromJson(bare.toJson())).applied(bare), bare);
}

TEST(ProviderForm, OnlyAServerOfTheUsersOwnHasAnAddressToEnter)
{
    ProviderConfiguration openAI = ProviderConfiguration::defaults().front();
    ProviderForm form(openAI);
    EXPECT_EQ(form.baseURL, QString());
    EXPECT_EQ(form.applied(openAI), openAI) << "its own address stays";
    form.baseURL = QStringLiteral("https://gateway.example/v1");
    EXPECT_EQ(messages(form), QStringLiteral("OpenAI has an address of its own. Leave this empty, or choose the type "
                                             "Custom for your own server."));

    // One that an earlier version has taken.
    openAI.customBaseURL = QStringLiteral("https://gateway.example/v1");
    EXPECT_EQ(openAI.strayAddress(), openAI.customBaseURL);
    form = ProviderForm(openAI);
    EXPECT_NE(messages(form), QString());
    form.baseURL.clear();
    EXPECT_EQ(form.applied(openAI).customBaseURL, ProviderConfiguration::defaults().front().customBaseURL);
    form = ProviderForm(openAI);
    form.type = RemoteProviderType::Custom;
    EXPECT_EQ(messages(form), QString());
    EXPECT_EQ(form.applied(openAI).customBaseURL, QStringLiteral("https://gateway.example/v1"));
}

TEST(LegacyKeyName, MovesTheTextAndNothingElse)
{
    const QTemporaryDir folder;
    UserDefaults defaults(folder.filePath(QStringLiteral("settings.ini")));
    renameLegacyKey(defaults);
    EXPECT_FALSE(defaults.contains(setting::userKey.key));
    defaults.set(setting::formerUserKey, QStringLiteral("value"));
    renameLegacyKey(defaults);
    EXPECT_EQ(defaults.stored(setting::userKey), QStringLiteral("value"));
    EXPECT_FALSE(defaults.contains(setting::formerUserKey.key));
}
