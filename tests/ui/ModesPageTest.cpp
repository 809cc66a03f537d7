#include "base/Settings.h"
#include "tests/ui/SettingsPagesFixture.h"
#include "vantro/ui/settings/ModesModel.h"

using namespace vantro;

namespace {

class ModesPage : public SettingsPages
{
protected:
    QCoro::Task<QString> rewrite(ProcessingMode mode, QString text)
    {
        if (!refusal.isEmpty())
            throw Error(refusal);
        co_return prompts.displayName(mode) + QStringLiteral(": ") + text;
    }
};

} // namespace

TEST_F(ModesPage, AModesProviderFollowsTheListOfProviders)
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

TEST_F(ModesPage, ModesAreAddedMovedTriedAndRemoved)
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

TEST_F(ModesPage, ThisComputerIsOfferedFirstOnceItHasALanguageModel)
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

TEST_F(ModesPage, OnlyAModeThatSomebodyServesCanBeTheDefault)
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
