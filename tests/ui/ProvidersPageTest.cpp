#include "tests/WaitFor.h"
#include "tests/ui/SettingsPagesFixture.h"
#include "vantro/ui/settings/ProvidersModel.h"

#include <QPromise>
#include <qcoro/qcorofuture.h>

using namespace vantro;

namespace {

constexpr int nameField = 0;
constexpr int modelField = 1;
constexpr int addressField = 2;
constexpr int temperatureField = 5;

class ProvidersPage : public SettingsPages
{
protected:
    ProvidersModel::Parts providerParts()
    {
        return {manager, [this] { return keychain.accounts(); },
                [this](const QString& account) { return ending(account); },
                [this](const ProviderConfiguration& provider, const std::optional<QString>& key) {
                    return verify(provider, key);
                },
                [this](const QString& question, const std::function<void()>& confirmed) {
                    questions << question;
                    if (answersYes)
                        confirmed();
                }};
    }

    QCoro::Task<> verify(ProviderConfiguration provider, std::optional<QString> key)
    {
        asked << provider.name + QLatin1Char(':') + key.value_or(QStringLiteral("stored"));
        if (!refusal.isEmpty())
            throw Error(refusal);
        co_return;
    }

    QCoro::Task<QStringList> modelsFrom(QFuture<QStringList> answer)
    {
        const QStringList models = co_await answer;
        co_return models;
    }

    QCoro::Task<QString> ending(QString account)
    {
        const auto reading = keychain.read(account);
        const std::optional<QString> key = co_await reading;
        co_return key->right(2);
    }

    QStringList asked; ///< of the provider, with the key
};

} // namespace

TEST_F(ProvidersPage, AProvidersModelsAreListedIntoItsForm)
{
    QPromise<QStringList> promise;
    promise.start();
    const QFuture<QStringList> answer = promise.future();
    ProvidersModel::Parts parts = providerParts();
    parts.models = [this, answer](const ProviderConfiguration& provider, const std::optional<QString>& key) {
        asked << provider.name + QLatin1Char(':') + key.value_or(QStringLiteral("stored"));
        return modelsFrom(answer);
    };
    bool hasBrowser = true;
    QString opened;
    parts.openPage = [&](const QString& address) {
        opened = address;
        return hasBrowser;
    };
    ProvidersModel page(parts);
    page.add();
    page.setField(modelField, QString());
    page.findModels(QStringLiteral("sk-1"));
    EXPECT_TRUE(page.isBusy());
    page.closeForm();
    page.add();
    EXPECT_FALSE(page.isBusy()) << "an answer that nobody waits for holds nothing up";
    page.findModels(QStringLiteral("sk-2"));
    promise.addResult(QStringList{QStringLiteral("large"), QStringLiteral("small")});
    promise.finish();
    ASSERT_TRUE(waitFor([&page] { return !page.isBusy(); }));
    EXPECT_EQ(asked, (QStringList{QStringLiteral("OpenAI:sk-1"), QStringLiteral("OpenAI:sk-2")}));
    ASSERT_EQ(page.offeredModels().size(), 2);
    EXPECT_EQ(page.offeredModel(), -1);
    page.chooseModel(1);
    EXPECT_EQ(text(page.fields(), modelField, "text"), QStringLiteral("small"));
    EXPECT_EQ(page.offeredModel(), 1);

    EXPECT_TRUE(page.hasKeyPage());
    hasBrowser = false;
    page.openKeyPage();
    EXPECT_TRUE(page.reportIsProblem());
    EXPECT_TRUE(page.report().contains(opened)) << "to be opened elsewhere";
    page.setType(static_cast<int>(RemoteProviderType::Custom));
    EXPECT_FALSE(page.hasKeyPage());
    EXPECT_TRUE(page.offeredModels().isEmpty()) << "they were another provider's";
    page.setField(addressField, QStringLiteral("ftp://nowhere"));
    page.findModels(QStringLiteral("sk-3"));
    EXPECT_TRUE(page.reportIsProblem());
    EXPECT_EQ(asked.size(), 2) << "there is nobody to ask";
}

TEST_F(ProvidersPage, AProviderIsStoredOnlyWhenItsFormIsRight)
{
    ProvidersModel page(providerParts());
    page.add();
    page.setType(static_cast<int>(RemoteProviderType::Custom));
    EXPECT_EQ(page.fieldProblems().join(QString()), QString()) << "nobody has typed anything yet";
    page.setField(temperatureField, QStringLiteral("warm"));
    EXPECT_EQ(page.fieldProblems().at(temperatureField), QStringLiteral("must be a number"));
    page.save(QString());
    EXPECT_TRUE(page.isEditing());
    EXPECT_EQ(page.fieldProblems().at(addressField), QStringLiteral("URL is required for custom provider"));
    EXPECT_EQ(manager.configurations().size(), 3U);

    page.setField(nameField, QStringLiteral("Mine"));
    page.setField(modelField, QStringLiteral("small"));
    page.setField(addressField, QStringLiteral("http://localhost:8080/v1"));
    EXPECT_TRUE(page.fieldWarnings().at(addressField).isEmpty()) << "nobody is between";
    page.setField(addressField, QStringLiteral("http://models.example/v1"));
    EXPECT_FALSE(page.fieldWarnings().at(addressField).isEmpty());
    page.setField(addressField, QStringLiteral("http://localhost:8080/v1"));
    page.setField(temperatureField, QString());
    page.save(QStringLiteral(" secret \n"));
    EXPECT_FALSE(page.isEditing());
    ASSERT_EQ(manager.configurations().size(), 4U);
    const ProviderConfiguration& mine = manager.configurations().back();
    EXPECT_EQ(mine.customBaseURL, QStringLiteral("http://localhost:8080/v1"));
    EXPECT_EQ(secrets.secrets.at(mine.keychainAccount()), QByteArray("secret"));
    EXPECT_EQ(text(page.providers(), 3, "key"), QString::fromUtf8("••••••••••••et"));
    EXPECT_EQ(text(page.providers(), 0, "key"), QStringLiteral("No API key configured"));
}

TEST_F(ProvidersPage, AKeyThatCannotBeStoredLosesNothingElse)
{
    ProvidersModel page(providerParts());
    page.edit(0);
    page.setField(nameField, QStringLiteral("Renamed"));
    secrets.fault = SecretStoreError(SecretStoreError::Kind::unavailable, QStringLiteral("The keyring is locked."));
    page.save(QStringLiteral("secret"));
    EXPECT_TRUE(page.isEditing());
    EXPECT_TRUE(page.reportIsProblem());
    EXPECT_TRUE(page.report().contains(QStringLiteral("The keyring is locked."))) << page.report().toStdString();
    EXPECT_EQ(manager.configurations().front().name, QStringLiteral("Renamed"));
    EXPECT_FALSE(page.isBusy());
    EXPECT_FALSE(page.problem().isEmpty()) << "the list says that it cannot look for keys";

    secrets.fault.reset();
    page.save(QStringLiteral("secret"));
    EXPECT_FALSE(page.isEditing());
    EXPECT_TRUE(page.problem().isEmpty());
}

TEST_F(ProvidersPage, ATrialTellsWhatTheProviderAnsweredAndStoresNothing)
{
    ProvidersModel page(providerParts());
    page.edit(1);
    page.setField(nameField, QStringLiteral("Other"));
    page.tryOut(QStringLiteral("typed"));
    EXPECT_EQ(page.report(), QStringLiteral("Other accepts the key"));
    refusal = QStringLiteral("wrong key");
    page.tryOut(QString());
    EXPECT_EQ(page.report(), refusal);
    EXPECT_TRUE(page.reportIsProblem());
    EXPECT_EQ(asked, (QStringList{QStringLiteral("Other:typed"), QStringLiteral("Other:stored")}));
    EXPECT_EQ(manager.configurations()[1].name, QStringLiteral("Anthropic"));
    EXPECT_TRUE(secrets.secrets.empty());
}

TEST_F(ProvidersPage, AProviderGoesWithItsKeyWhenTheUserIsSure)
{
    ProvidersModel page(providerParts());
    page.edit(0);
    page.save(QStringLiteral("secret"));
    answersYes = false;
    page.remove(0);
    EXPECT_EQ(questions.back(),
              QStringLiteral("Are you sure you want to delete 'OpenAI'? This action cannot be undone."));
    EXPECT_EQ(manager.configurations().size(), 3U);
    answersYes = true;
    page.edit(0);
    page.remove(0);
    EXPECT_FALSE(page.isEditing()) << "the form of a provider that is no more";
    EXPECT_EQ(manager.configurations().size(), 2U);
    EXPECT_TRUE(secrets.secrets.empty());
    page.setEnabled(0, false);
    EXPECT_FALSE(manager.configurations().front().isEnabled);
}
