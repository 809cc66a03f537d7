#include "base/Settings.h"
#include "tests/ui/SettingsPagesFixture.h"
#include "vantro/ui/settings/VocabularyModel.h"

using namespace vantro;

namespace {

class VocabularyPage : public SettingsPages
{
protected:
    static QString shown(VocabularyModel& page, int row, const char* member)
    {
        const QAbstractItemModel& rows = *page.wordRows();
        return rows.index(row, 0).data(rows.roleNames().key(member)).toString();
    }

    VocabularySettings vocabulary{defaults};
};

} // namespace

TEST_F(VocabularyPage, AFullListTakesNoMoreAndARemovedWordComesBackToItsPlace)
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
    page.removeWord(10);
    vocabulary.addVocabularyWord(QStringLiteral("word11")); // from the command line, as what was removed last
    page.undo();
    EXPECT_EQ(page.words().count(QStringLiteral("word11")), 1);
    page.removeWord(0);
    vocabulary.addVocabularyWords({QStringLiteral("new"), QStringLiteral("newer")});
    page.undo();
    EXPECT_EQ(page.words().size(), VocabularySettings::maxVocabularyWords);
    EXPECT_EQ(notices.size(), 2);

    page.removeWord(0);
    page.reset();
    page.undo();
    EXPECT_TRUE(page.words().isEmpty()) << "what was there before a reset does not come back piece by piece";
}

TEST_F(VocabularyPage, AWordsSoundAndWeightAreKeptWithItAndComeBackWithIt)
{
    VocabularyModel page({vocabulary, [](const LimitNotice&) {},
                          [](const std::function<void()>&) {
                          }});
    page.addWord(QStringLiteral("Gregsson"));
    EXPECT_EQ(page.readiness(0), 1);
    page.refineWord(0, QStringLiteral(" greg sun,, gregs on "), 2);
    page.refineWord(1, QStringLiteral("no such row"), 0);
    EXPECT_EQ(page.soundsLike(0), QStringLiteral("greg sun, gregs on"));
    EXPECT_EQ(shown(page, 0, "soundsLike"), QStringLiteral("greg sun, gregs on"));
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
    const QStringList withComma{QStringLiteral("greg, sun")};
    vocabulary.setDetails(QStringLiteral("Gregsson"), {withComma, 0.6});
    page.refineWord(0, page.soundsLike(0), 0);
    EXPECT_EQ(vocabulary.details(QStringLiteral("Gregsson")).soundsLike, withComma) << "nobody has edited it";
    EXPECT_EQ(vocabulary.details(QStringLiteral("Gregsson")).weight, 0.6);
    defaults.set(setting::vocabularyDetails,
                 QByteArray("{\"Gregsson\": {\"weight\": 1e9, \"soundsLike\": [3]}, \"x\": 1}"));
    EXPECT_EQ(VocabularySettings(defaults).details(QStringLiteral("Gregsson")),
              (VocabularyDetails{{}, VocabularyDetails::greatestWeight}));
}

TEST_F(VocabularyPage, ARowStaysTheSameWhileOthersComeAndGo)
{
    VocabularyModel page({vocabulary, [](const LimitNotice&) {},
                          [](const std::function<void()>&) {
                          }});
    QAbstractItemModel& rows = *page.wordRows();
    const auto expectShown = [&] {
        QStringList words;
        for (int row = 0; row < rows.rowCount(); ++row)
            words << shown(page, row, "word");
        EXPECT_EQ(words, page.words());
    };
    vocabulary.setVocabulary({QStringLiteral("a"), QStringLiteral("edited"), QStringLiteral("z")});
    const QPersistentModelIndex edited(rows.index(1, 0));
    page.addWord(QStringLiteral("new"));
    expectShown();
    page.removeWord(0);
    expectShown();
    page.refineWord(0, QStringLiteral("eddy"), 1);
    page.undo();
    expectShown();
    EXPECT_EQ(edited.row(), 1);
    EXPECT_EQ(shown(page, 1, "soundsLike"), QStringLiteral("eddy"));
    vocabulary.setVocabulary({QStringLiteral("z"), QStringLiteral("a")});
    expectShown();
    EXPECT_FALSE(edited.isValid());
}

TEST_F(VocabularyPage, TheVocabularyPageTellsWhetherWordsAreLookedForAndWhatToDo)
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

TEST_F(VocabularyPage, AReplacementKeepsItsIdentityAndNeverLooksForNothing)
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
