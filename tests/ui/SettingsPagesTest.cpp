// What the pages of the settings do with the user's lists, and what they say when it cannot be done.
#include "base/Settings.h"
#include "base/testing/ManualClock.h"
#include "platform/testing/FakeSecretStore.h"
#include "platform/testing/FakeWorkspace.h"
#include "tests/WaitFor.h"
#include "vantro/ai/providers/KeychainService.h"
#include "vantro/delivery/PasteChords.h"
#include "vantro/ui/settings/ApplicationsModel.h"
#include "vantro/ui/settings/GeneralSettings.h"
#include "vantro/ui/settings/ModesModel.h"
#include "vantro/ui/settings/ProvidersModel.h"
#include "vantro/ui/settings/VocabularyModel.h"

#include <QPromise>
#include <QTemporaryDir>
#include <qcoro/qcorofuture.h>

#include <gtest/gtest.h>

using namespace vantro;

namespace {

constexpr int nameField = 0;
constexpr int modelField = 1;
constexpr int addressField = 2;
constexpr int temperatureField = 5;

struct NoLoginItem final : LoginItem
{
    [[nodiscard]] bool isEnabled() const override { return false; }
    void setEnabled(bool /*enabled*/) override {}
};

class SettingsPages : public testing::Test
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

    QCoro::Task<QString> rewrite(ProcessingMode mode, QString text)
    {
        if (!refusal.isEmpty())
            throw Error(refusal);
        co_return prompts.displayName(mode) + QStringLiteral(": ") + text;
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

    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    doubles::FakeSecretStore secrets;
    KeychainService keychain{secrets};
    ProviderConfigurationManager manager{defaults, keychain};
    PromptSettings prompts{defaults};
    CleaningSettings cleaning{defaults};
    VocabularySettings vocabulary{defaults};
    QStringList questions;
    QStringList asked;
    QString refusal;
    bool answersYes = true;
};

QString text(const QVariantList& list, int row, const char* member)
{
    return list.at(row).toMap().value(QLatin1String(member)).toString();
}

} // namespace

TEST_F(SettingsPages, OpenPagesFollowWhatACommandSets)
{
    doubles::FakeWorkspace workspace;
    NoLoginItem loginItem;
    doubles::ManualClock clock;
    UpdateChecker updates({defaults, workspace, clock, {}, {}, {}});
    GeneralSettings general({defaults, loginItem, updates});
    ModesModel modes({defaults, prompts, cleaning, manager, [](ProcessingMode) { return true; }, {}});
    int generalChanges = 0;
    int modesChanges = 0;
    QObject::connect(&general, &GeneralSettings::changed, [&] { ++generalChanges; });
    QObject::connect(&modes, &ModesModel::changed, [&] { ++modesChanges; });

    UserDefaults command(folder.filePath(QStringLiteral("vantro.ini")));
    command.set(setting::holdToTalk, true);
    command.set(setting::reduceMotion, false);
    command.set(setting::selectedLanguage, QStringLiteral("de"));
    command.set(setting::defaultProcessingMode, QStringLiteral("Notes"));
    defaults.reload();
    EXPECT_GE(generalChanges, 1);
    EXPECT_EQ(modesChanges, 1);
    EXPECT_TRUE(general.holdToTalk());
    EXPECT_EQ(general.motion(), 1) << "with movement, whatever the desktop wants";
    EXPECT_GT(general.language(), 0) << "no longer detected";
    EXPECT_EQ(modes.defaultMode(), static_cast<int>(ProcessingMode::Notes));

    general.setMotion(0);
    general.setAppearance(2);
    command.reload();
    EXPECT_FALSE(command.stored(setting::reduceMotion));
    EXPECT_EQ(command.get(setting::appearance), QStringLiteral("dark"));
}

TEST_F(SettingsPages, AFullListTakesNoMoreAndARemovedWordComesBackToItsPlace)
{
    QStringList notices;
    VocabularyModel page({vocabulary, [&notices](const LimitNotice& notice) { notices << notice.title; },
                          [](const std::function<void()>& confirmed) {
                              confirmed();
                          }});
    for (int number = 0; number < VocabularySettings::maxVocabularyWords; ++number)
        EXPECT_TRUE(page.addWord(QStringLiteral("word%1").arg(number)));
    EXPECT_EQ(page.wordsLimit(), QStringLiteral("Maximum limit reached (50 words)"));
    EXPECT_FALSE(page.addWord(QStringLiteral("one more")));
    EXPECT_EQ(notices, QStringList{QStringLiteral("Vocabulary Limit Reached")});

    page.removeWord(7);
    EXPECT_EQ(page.removed(), QStringLiteral("word7"));
    EXPECT_TRUE(page.wordsLimit().isEmpty());
    page.undo();
    EXPECT_EQ(page.words().at(7), QStringLiteral("word7"));
    EXPECT_TRUE(page.removed().isEmpty());
    page.undo();
    EXPECT_EQ(page.words().size(), VocabularySettings::maxVocabularyWords);

    page.removeWord(0);
    page.reset();
    page.undo();
    EXPECT_TRUE(page.words().isEmpty()) << "what was there before a reset does not come back piece by piece";
}

TEST_F(SettingsPages, AWordsSoundAndWeightAreKeptWithItAndComeBackWithIt)
{
    VocabularyModel page({vocabulary, [](const LimitNotice&) {},
                          [](const std::function<void()>&) {
                          }});
    page.addWord(QStringLiteral("Gregsson"));
    EXPECT_EQ(page.readiness(0), 1);
    page.refineWord(0, QStringLiteral(" greg sun,, gregs on "), 2);
    page.refineWord(1, QStringLiteral("no such row"), 0);
    EXPECT_EQ(page.soundsLike(0), QStringLiteral("greg sun, gregs on"));
    EXPECT_EQ(vocabulary.details(QStringLiteral("Gregsson")).weight, 2);
    page.removeWord(0);
    page.undo();
    EXPECT_EQ(page.readiness(0), 2);
    // Another program, or the command line, sets a weight that the page does not offer.
    UserDefaults command(folder.filePath(QStringLiteral("vantro.ini")));
    VocabularySettings(command).setDetails(QStringLiteral("Gregsson"), {{QStringLiteral("greg sun")}, 0.6});
    defaults.reload();
    EXPECT_EQ(page.readiness(0), 0);
    page.refineWord(0, QStringLiteral("greg sun"), 0);
    EXPECT_EQ(vocabulary.details(QStringLiteral("Gregsson")).weight, 0.6);
    defaults.set(setting::vocabularyDetails,
                 QByteArray("{\"Gregsson\": {\"weight\": 1e9, \"soundsLike\": [3]}, \"x\": 1}"));
    EXPECT_EQ(VocabularySettings(defaults).details(QStringLiteral("Gregsson")),
              (VocabularyDetails{{}, VocabularyDetails::greatestWeight}));
}

TEST_F(SettingsPages, TheVocabularyPageTellsWhetherWordsAreLookedForAndWhatToDo)
{
    using State = VocabularyModel::Boosting::State;
    VocabularyModel::Boosting boosting;
    int downloads = 0;
    VocabularyModel page({vocabulary, [](const LimitNotice&) {}, [](const std::function<void()>&) {},
                          [&boosting] { return boosting; },
                          [&downloads] {
                              ++downloads;
                          }});
    page.addWord(QStringLiteral("Gregsson"));
    QStringList texts = {page.boostingText()};
    for (const State state : {State::ready, State::missing, State::unpublished, State::damaged, State::downloading}) {
        boosting = {state, QStringLiteral("/models/there.gguf"), QStringLiteral("120 MiB"), QString(), QString(),
                    0.25F};
        page.refreshBoosting();
        EXPECT_FALSE(texts.contains(page.boostingText()));
        texts << page.boostingText();
        const bool namesFile = state == State::unpublished || state == State::damaged;
        EXPECT_EQ(page.boostingHint().contains(boosting.file), namesFile);
        EXPECT_EQ(page.canDownload(), state == State::missing);
        EXPECT_EQ(page.isDownloading(), state == State::downloading);
    }
    EXPECT_TRUE(texts[2].contains(boosting.size));
    page.download();
    EXPECT_EQ(downloads, 1);
    boosting.problem = QStringLiteral("None of the vocabulary terms could be tokenized for boosting.");
    page.refreshBoosting();
    EXPECT_TRUE(page.boostingProblem().contains(boosting.problem));
    page.removeWord(0);
    EXPECT_TRUE(page.boostingProblem().isEmpty()) << "nothing to look for";
}

TEST_F(SettingsPages, AReplacementKeepsItsIdentityAndNeverLooksForNothing)
{
    VocabularyModel page({vocabulary, [](const LimitNotice&) {},
                          [](const std::function<void()>&) {
                          }});
    page.addReplacement(QStringLiteral("um"), QString());
    page.addReplacement(QStringLiteral("cat"), QStringLiteral("dog"));
    const QUuid id = vocabulary.textReplacements().front().id;
    page.updateReplacement(0, QStringLiteral("uhm"), QStringLiteral(" "));
    page.updateReplacement(1, QStringLiteral("  "), QStringLiteral("bird"));
    page.updateReplacement(2, QStringLiteral("x"), QStringLiteral("y"));
    EXPECT_EQ(vocabulary.textReplacements().front(), (TextReplacement{id, QStringLiteral("uhm"), QStringLiteral(" ")}));
    EXPECT_EQ(text(page.replacements(), 1, "find"), QStringLiteral("cat"));
    page.removeReplacement(0);
    page.undo();
    EXPECT_EQ(vocabulary.textReplacements().front().id, id);
}

TEST_F(SettingsPages, AModesProviderFollowsTheListOfProviders)
{
    bool isSure = false;
    ModesModel page({defaults, prompts, cleaning, manager,
                     [](ProcessingMode mode) { return mode == ProcessingMode::Normal; },
                     [&isSure](const std::function<void()>& confirmed) {
                         if (isSure)
                             confirmed();
                     }});
    page.setShown(static_cast<int>(ProcessingMode::Grammar));
    EXPECT_EQ(page.provider(), 0);
    page.setProvider(1);
    EXPECT_EQ(prompts.configuration(ProcessingMode::Grammar), (ModeConfiguration{.cleans = true})) << "the rules";
    EXPECT_EQ(page.provider(), 1);
    page.setProvider(3);
    EXPECT_EQ(prompts.configuration(ProcessingMode::Grammar).providerConfigId, manager.configurations()[1].id);
    EXPECT_EQ(prompts.configuration(ProcessingMode::Email).providerConfigId, std::nullopt);
    EXPECT_FALSE(page.lacking().isEmpty());

    const QString builtIn = page.prompt();
    page.setPrompt(QStringLiteral("Shout."));
    page.useBuiltInPrompt();
    EXPECT_EQ(page.prompt(), QStringLiteral("Shout.")) << "not without a yes";
    isSure = true;
    page.useBuiltInPrompt();
    EXPECT_EQ(page.prompt(), builtIn);

    manager.remove(manager.configurations()[0].id);
    EXPECT_EQ(page.provider(), 2);
    manager.remove(manager.configurations()[0].id);
    EXPECT_EQ(page.provider(), -1) << "that its provider was removed is to be seen";
    page.setProvider(0);
    EXPECT_EQ(prompts.configuration(ProcessingMode::Grammar), ModeConfiguration());
}

TEST_F(SettingsPages, ModesAreAddedMovedTriedAndRemoved)
{
    ModesModel::Parts parts{
        defaults, prompts, cleaning, manager, [](ProcessingMode mode) { return mode != ProcessingMode::Email; }, {}};
    parts.confirmRemoval = [this](const QString& name, const std::function<void()>& confirmed) {
        questions << name;
        if (answersYes)
            confirmed();
    };
    parts.rewrite = [this](ProcessingMode mode, const QString& text) {
        return rewrite(mode, text);
    };
    ModesModel page(parts);
    const auto names = [&page] {
        QStringList list;
        for (int row = 0; row < page.list()->rowCount(); ++row)
            list << page.list()->index(row, 0).data(ModeList::Name).toString();
        return list;
    };
    page.add();
    page.add();
    EXPECT_EQ(names().mid(5), (QStringList{QStringLiteral("New mode"), QStringLiteral("New mode 2")}));
    EXPECT_EQ(page.shown(), 6) << "the new one is open";
    page.setName(QStringLiteral("Letters"));
    page.setPrompt(QStringLiteral("Write a letter."));
    const QPersistentModelIndex letters = page.list()->index(6, 0);
    page.move(6, -5);
    page.move(0, -1);
    EXPECT_EQ(letters.row(), 1) << "the row itself moves";
    EXPECT_EQ(page.shown(), 1);
    EXPECT_EQ(names().mid(0, 3),
              (QStringList{QStringLiteral("Normal"), QStringLiteral("Letters"), QStringLiteral("Email")}));

    QStringList digits;
    for (int row = 0; row < page.list()->rowCount(); ++row)
        digits << page.list()->index(row, 0).data(ModeList::Digit).toString();
    EXPECT_EQ(digits.join(QString()), QStringLiteral("1203456")) << "what the launcher offers";

    page.tryOut(QStringLiteral(" hello "));
    EXPECT_EQ(page.trialResult(), QStringLiteral("Letters: hello"));
    refusal = QStringLiteral("The server is out.");
    page.tryOut(QStringLiteral("hello"));
    EXPECT_EQ(page.trialProblem(), refusal);
    EXPECT_EQ(page.trialResult(), QString());
    page.setShown(0);
    EXPECT_EQ(page.trialProblem(), QString()) << "it was another mode's";
    EXPECT_FALSE(page.canTry()) << "nothing is done to the text";

    page.remove(0);
    EXPECT_TRUE(questions.isEmpty()) << "built in";
    answersYes = false;
    page.remove(1);
    EXPECT_EQ(names().size(), 7);
    answersYes = true;
    page.remove(1);
    EXPECT_EQ(questions, (QStringList{QStringLiteral("Letters"), QStringLiteral("Letters")}));
    EXPECT_FALSE(names().contains(QStringLiteral("Letters")));
}

TEST_F(SettingsPages, AProvidersModelsAreListedIntoItsForm)
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

TEST_F(SettingsPages, ApplicationsGetModesAndPasteKeysOfTheirOwn)
{
    doubles::FakeWorkspace workspace;
    workspace.openWindow(1, {QStringLiteral("XTerm"), QStringLiteral("xterm")});
    workspace.openWindow(2, {QStringLiteral("Mail"), QStringLiteral("thunderbird")});
    workspace.openWindow(3);
    workspace.makeOwn(3);
    workspace.focus(1);
    const auto name = [this](ProcessingMode mode) {
        return prompts.displayName(mode);
    };
    ApplicationsModel page({defaults, workspace, prompts.modes(), name});
    workspace.focus(2);
    workspace.focus(3);
    EXPECT_EQ(page.seen(), (QStringList{QStringLiteral("thunderbird"), QStringLiteral("xterm")}));
    EXPECT_TRUE(page.add(QStringLiteral("thunderbird ")));
    EXPECT_FALSE(page.add(QStringLiteral("Thunderbird")));
    EXPECT_FALSE(page.problem().isEmpty());
    EXPECT_FALSE(page.add(QStringLiteral(" ")));
    EXPECT_EQ(page.seen(), QStringList{QStringLiteral("xterm")});

    int resets = 0;
    QObject::connect(&page, &QAbstractItemModel::modelReset, [&resets] { ++resets; });
    page.setMode(0, 2);
    page.setPasteKeys(0, 3);
    page.setFullStop(0, false);
    EXPECT_EQ(resets, 0) << "the control that was used keeps the keyboard";
    const auto rule = applicationRuleFor(defaults, {QStringLiteral("Mail"), QStringLiteral("thunderbird")});
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->mode, ProcessingMode::Email);
    EXPECT_FALSE(rule->hasFullStop);
    EXPECT_EQ(pasteChordFor({QStringLiteral("thunderbird")}, defaults), KeyEventPoster::PasteChord::ShiftInsert);

    UserDefaults command(folder.filePath(QStringLiteral("vantro.ini")));
    command.set(setting::pasteChords, R"({"xterm":"Ctrl+V","other":"Ctrl+9","thunderbird":"Ctrl+V"})");
    defaults.reload();
    ASSERT_EQ(page.rowCount(), 2) << "what only has paste keys is seen too";
    EXPECT_EQ(page.index(1, 0).data(ApplicationsModel::Application).toString(), QStringLiteral("xterm"));
    page.setPasteKeys(0, 0);
    EXPECT_TRUE(defaults.get(setting::pasteChords).contains(R"("other":"Ctrl+9")")) << "not understood, not lost";
    EXPECT_EQ(pasteChordFor({QStringLiteral("thunderbird")}, defaults), KeyEventPoster::PasteChord::ControlV);
    page.remove(1);
    EXPECT_EQ(pasteChordFor({QStringLiteral("xterm")}, defaults), KeyEventPoster::PasteChord::ShiftInsert);
    EXPECT_EQ(page.removed(), QStringLiteral("xterm"));
    page.undo();
    EXPECT_EQ(pasteChordFor({QStringLiteral("xterm")}, defaults), KeyEventPoster::PasteChord::ControlV);
}

TEST_F(SettingsPages, ThisComputerIsOfferedFirstOnceItHasALanguageModel)
{
    QString local;
    ModesModel page({defaults,
                     prompts,
                     cleaning,
                     manager,
                     [](ProcessingMode) { return true; },
                     {},
                     [&local] {
                         return local;
                     }});
    page.setShown(static_cast<int>(ProcessingMode::Grammar));
    EXPECT_EQ(page.providers().first(), QStringLiteral("None"));
    page.setProvider(static_cast<int>(page.providers().size()) - 1);
    EXPECT_TRUE(prompts.configuration(ProcessingMode::Grammar).useLocalAI) << "the model may come later";
    EXPECT_EQ(page.provider(), page.providers().size() - 1);

    local = QStringLiteral("Small");
    EXPECT_EQ(page.providers().first(), QStringLiteral("This computer (Small)"));
    EXPECT_EQ(page.providers().size(), manager.configurations().size() + 2);
    EXPECT_EQ(page.provider(), 0);
    page.setProvider(2);
    EXPECT_EQ(prompts.configuration(ProcessingMode::Grammar),
              (ModeConfiguration{false, manager.configurations()[0].id}));
    page.setProvider(0);
    EXPECT_EQ(prompts.configuration(ProcessingMode::Grammar), ModeConfiguration{true});
    page.setShown(static_cast<int>(ProcessingMode::Email));
    EXPECT_EQ(page.provider(), 0) << "nobody was chosen, so this computer does it";
}

TEST_F(SettingsPages, OnlyAModeThatSomebodyServesCanBeTheDefault)
{
    bool hasProvider = true;
    ModesModel page({defaults,
                     prompts,
                     cleaning,
                     manager,
                     [&hasProvider](ProcessingMode mode) {
                         return mode == ProcessingMode::Normal || mode == ProcessingMode::Notes || hasProvider;
                     },
                     {}});
    EXPECT_EQ(page.defaultModes().size(), 5);
    page.setDefaultMode(1);
    EXPECT_EQ(defaults.stored(setting::defaultProcessingMode), QStringLiteral("Email"));
    EXPECT_TRUE(page.defaultNote().isEmpty());
    hasProvider = false;
    EXPECT_EQ(page.defaultModes(), (QStringList{QStringLiteral("Normal"), QStringLiteral("Notes")}));
    EXPECT_EQ(page.defaultMode(), 0) << "what dictations start in";
    EXPECT_TRUE(page.defaultNote().startsWith(QStringLiteral("Email"))) << page.defaultNote().toStdString();
    page.setDefaultMode(1);
    EXPECT_EQ(defaults.stored(setting::defaultProcessingMode), QStringLiteral("Notes"));
    page.setDefaultMode(2);
    EXPECT_EQ(page.defaultMode(), 1);
}

TEST_F(SettingsPages, AProviderIsStoredOnlyWhenItsFormIsRight)
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

TEST_F(SettingsPages, AKeyThatCannotBeStoredLosesNothingElse)
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

TEST_F(SettingsPages, ATrialTellsWhatTheProviderAnsweredAndStoresNothing)
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

TEST_F(SettingsPages, AProviderGoesWithItsKeyWhenTheUserIsSure)
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
