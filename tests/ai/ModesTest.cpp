#include "base/Error.h"
#include "base/RunTask.h"
#include "base/Settings.h"
#include "vantro/ai/AnswerSetAside.h"
#include "vantro/ai/BuiltInPrompts.h"
#include "vantro/ai/FormattingModeHandler.h"
#include "vantro/ai/ModeHandlers.h"

#include <QTemporaryDir>
#include <qcoro/qcorotask.h>

#include <gtest/gtest.h>

using namespace vantro;

namespace {

/// Writes down what is done to the store and to the language model, in the order in which it happens.
class Diary final : public TranscriptionStoring, public FormatRequestServicing
{
public:
    QUuid saveTranscription(const QString& transcription, const QString& formatted, ProcessingMode mode) override
    {
        entries << QStringLiteral("row %1 [%2][%3]").arg(rawValue(mode), transcription, formatted);
        return id;
    }
    QUuid saveTranscription(const QString& transcription, ProcessingMode mode) override
    {
        return saveTranscription(transcription, {}, mode);
    }
    void updateFormatted(const QUuid& row, const QString& formatted) override
    {
        entries << QStringLiteral("formatted %1 [%2]")
                       .arg(row == id ? QStringLiteral("it") : QStringLiteral("another"), formatted);
    }
    void setAside(const QUuid& row, const QString& answer, const QString& reason) override
    {
        entries << QStringLiteral("set aside %1 [%2][%3]")
                       .arg(row == id ? QStringLiteral("it") : QStringLiteral("another"), answer, reason);
    }
    QCoro::Task<QUuid> addNote(QString transcription) override
    {
        entries << QStringLiteral("note [%1]").arg(transcription);
        co_return QUuid::createUuid();
    }
    QCoro::Task<> summarizeToday(std::shared_ptr<FormatRequestServicing> service) override
    {
        entries << (service ? QStringLiteral("summary") : QStringLiteral("nobody to ask"));
        co_return;
    }
    QCoro::Task<QString> format(QString prompt, QString text) override
    {
        entries << QStringLiteral("asked [%1][%2]").arg(prompt, text);
        if (isDoubtful)
            throw AnswerSetAside(AnswerSetAside::Doubt::addedNumber, QStringLiteral("Dear 7"), QStringLiteral("7"));
        if (fails)
            throw Error(QStringLiteral("The server is out."));
        co_return QStringLiteral("Dear ") + text;
    }

    const QUuid id = QUuid::createUuid();
    QStringList entries;
    bool fails = false;
    bool isDoubtful = false;
};

class Modes : public testing::Test
{
protected:
    /// What was done, and what is delivered or the error in the end.
    QStringList process(ModeHandler& handler)
    {
        const std::shared_ptr<FormatRequestServicing> service(&diary, [](auto*) {});
        try {
            const QString text = runTask(handler.process(QStringLiteral("hello"), service));
            return diary.entries + QStringList(text);
        } catch (const Error& error) {
            return diary.entries + QStringList(QStringLiteral("! ") + error.localizedDescription());
        }
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("vantro.ini"));
    UserDefaults defaults{path};
    PromptSettings prompts{defaults};
    Diary diary;
};

} // namespace

TEST_F(Modes, EmailAndGrammarStoreBeforeTheyAskAndAfterwards)
{
    prompts.setPrompt(ProcessingMode::Email, QStringLiteral("as mail"));
    EmailModeHandler email(diary, prompts);
    EXPECT_EQ(process(email),
              QStringList({QStringLiteral("row Email [hello][]"), QStringLiteral("asked [as mail][hello]"),
                           QStringLiteral("formatted it [Dear hello]"), QStringLiteral("Dear hello")}));
    diary.entries.clear();
    diary.fails = true;
    ThirdModeHandler grammar(diary, prompts);
    EXPECT_EQ(process(grammar),
              QStringList({QStringLiteral("row Grammar [hello][]"),
                           QStringLiteral("asked [%1][hello]").arg(*builtInPrompt(ProcessingMode::Grammar)),
                           QStringLiteral("! The server is out.")}));
}

TEST_F(Modes, AnAnswerThatIsNotBelievedIsKeptWithItsReasonButNotAsTheText)
{
    diary.isDoubtful = true;
    prompts.setPrompt(ProcessingMode::Email, QStringLiteral("as mail"));
    EmailModeHandler email(diary, prompts);
    const QString reason = QStringLiteral("The rewriting was set aside: it says “7”, and you did not.");
    EXPECT_EQ(process(email),
              QStringList({QStringLiteral("row Email [hello][]"), QStringLiteral("asked [as mail][hello]"),
                           QStringLiteral("set aside it [Dear 7][%1]").arg(reason), QStringLiteral("! ") + reason}));
}

TEST_F(Modes, CustomAsksOnlyWithAPromptAndWhiteSpaceIsOne)
{
    CustomModeHandler handler(diary, prompts);
    EXPECT_EQ(process(handler), QStringList({QStringLiteral("row Custom [hello][]"), QStringLiteral("hello")}));
    diary.entries.clear();
    prompts.setPrompt(ProcessingMode::Custom, QStringLiteral(" "));
    EXPECT_EQ(process(handler),
              QStringList({QStringLiteral("row Custom [hello][]"), QStringLiteral("asked [ ][hello]"),
                           QStringLiteral("formatted it [Dear hello]"), QStringLiteral("Dear hello")}));
}

TEST_F(Modes, SettingsAreCompletedAndWhatTheUserSetStays)
{
    const QUuid provider = QUuid::createUuid();
    prompts.setPrompt(ProcessingMode::Email, QStringLiteral("mine"));
    prompts.setConfiguration(ProcessingMode::Email, {false, provider});
    prompts.setCustomModeName(ProcessingMode::Custom, QStringLiteral("Translate"));
    defaults.set(setting::customPrompts, R"({"Email":"mine","Poem":"?"})");

    UserDefaults again(path);
    PromptSettings later(again);
    EXPECT_EQ(later.prompt(ProcessingMode::Email), QStringLiteral("mine"));
    EXPECT_EQ(later.prompt(ProcessingMode::Grammar), builtInPrompt(ProcessingMode::Grammar));
    EXPECT_EQ(later.prompt(ProcessingMode::Custom), QString());
    EXPECT_EQ(later.configuration(ProcessingMode::Email), (ModeConfiguration{false, provider}));
    EXPECT_EQ(later.configuration(ProcessingMode::Notes), ModeConfiguration());
    EXPECT_EQ(later.displayName(ProcessingMode::Custom), QStringLiteral("Translate"));
    EXPECT_EQ(later.displayName(ProcessingMode::Grammar), QStringLiteral("Grammar"));

    // And the program that runs meanwhile sees it.
    defaults.reload();
    later.setCustomModeName(ProcessingMode::Custom, QString());
    later.setPrompt(ProcessingMode::Custom, QStringLiteral("Make it rhyme"));
    defaults.reload();
    EXPECT_EQ(prompts.displayName(ProcessingMode::Custom), QStringLiteral("Custom"));
    EXPECT_EQ(prompts.prompt(ProcessingMode::Custom), QStringLiteral("Make it rhyme"));
}

TEST_F(Modes, WhatCannotBeReadIsPutAside)
{
    const QByteArray broken = R"({"Email":{"useLocalAI":"yes"}})";
    defaults.set(setting::modeConfigurations, broken);
    UserDefaults again(path);
    const PromptSettings later(again);
    EXPECT_EQ(later.configuration(ProcessingMode::Email), ModeConfiguration());
    EXPECT_EQ(again.read<QByteArray>(QStringLiteral("modeConfigurations.unreadable")), broken);
}

TEST_F(Modes, TheUserAddsOrdersAndRemovesModes)
{
    const auto letters = prompts.add(QStringLiteral("Letters"));
    ASSERT_TRUE(letters);
    prompts.setPrompt(*letters, QStringLiteral("Write a letter."));
    EXPECT_EQ(prompts.modes().back(), *letters);
    EXPECT_EQ(prompts.find(QStringLiteral("letters")), letters);
    prompts.setCustomModeName(*letters, QString());
    EXPECT_EQ(prompts.displayName(*letters), QStringLiteral("Letters")) << "a name is all it has";
    const auto handlers = makeModeHandlers(diary, prompts, {});
    EXPECT_EQ(process(*handlers.at(*letters)).at(1), QStringLiteral("asked [Write a letter.][hello]"));

    prompts.move(*letters, 1);
    prompts.move(ProcessingMode::Notes, 0);
    const std::vector<ProcessingMode> order{ProcessingMode::Notes, ProcessingMode::Normal,  *letters,
                                            ProcessingMode::Email, ProcessingMode::Grammar, ProcessingMode::Custom};
    EXPECT_EQ(prompts.modes(), order);
    UserDefaults again(path);
    EXPECT_EQ(PromptSettings(again).modes(), order);

    int count = 0;
    while (prompts.add(QStringLiteral("Another %1").arg(count)))
        ++count;
    EXPECT_EQ(prompts.modes().size(), 9U) << "as many as digit keys";
    prompts.remove(ProcessingMode::Email);
    EXPECT_TRUE(prompts.exists(ProcessingMode::Email)) << "built in";
    prompts.remove(*letters);
    EXPECT_FALSE(prompts.find(QStringLiteral("Letters")));
    EXPECT_EQ(prompts.add(QStringLiteral("Poems")), letters);
    EXPECT_EQ(prompts.prompt(*letters), QString()) << "nothing is left of the former one";
}
