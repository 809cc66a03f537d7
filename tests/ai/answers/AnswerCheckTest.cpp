// Answers of language models, real and written by hand, against what a person thinks of each.
#include "vantro/ai/answers/AnswerCheck.h"

#include "platform/linux/cld2/Cld2LanguageRecognizer.h"
#include "vantro/ai/BuiltInPrompts.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <vector>

using namespace vantro;

namespace {

struct Pair
{
    QString mode;
    QString said;
    QString answer;
    QString text; ///< what is to be delivered of it, where that is not the answer
    bool isGood = false;
    bool isHeldOut = false; ///< not looked at when the limits were chosen
};

std::vector<Pair> pairs()
{
    QFile file(qEnvironmentVariable("VANTRO_SOURCE_DIR") + QStringLiteral("/tests/data/answers/pairs.jsonl"));
    std::vector<Pair> all;
    if (!file.open(QIODevice::ReadOnly))
        return all;
    while (!file.atEnd()) {
        const QJsonObject line = QJsonDocument::fromJson(file.readLine()).object();
        all.push_back({line.value(QLatin1String("mode")).toString(), line.value(QLatin1String("said")).toString(),
                       line.value(QLatin1String("answer")).toString(), line.value(QLatin1String("text")).toString(),
                       line.value(QLatin1String("good")).toBool(), line.value(QLatin1String("heldOut")).toBool()});
    }
    return all;
}

/// The text to deliver, or the doubt in parentheses.
QString judged(const QString& answer, const QString& said, const QString& prompt)
{
    static const Cld2LanguageRecognizer languages;
    try {
        return AnswerCheck(languages).checked(answer, said, prompt);
    } catch (const AnswerSetAside& error) {
        return QStringLiteral("(%1)").arg(AnswerSetAside::name(error.doubt()));
    }
}

QString promptOf(const QString& mode)
{
    return builtInPrompt(*processingModeFromRawValue(mode)).value_or(QString());
}

} // namespace

TEST(AnswerCheck, FalseAlarmsAndMissesAreThoseThatAreStated)
{
    struct Count
    {
        int good = 0;
        int bad = 0;
        int falseAlarms = 0;
        int misses = 0;
    };
    Count known;
    Count heldOut;
    for (const Pair& pair : pairs()) {
        Count& count = pair.isHeldOut ? heldOut : known;
        const QString result = judged(pair.answer, pair.said, promptOf(pair.mode));
        const bool isBelieved = !result.startsWith(QLatin1Char('('));
        ++(pair.isGood ? count.good : count.bad);
        if (pair.isGood != isBelieved) {
            ++(pair.isGood ? count.falseAlarms : count.misses);
            std::cout << (pair.isGood ? "false alarm: " : "miss: ") << qPrintable(pair.said) << "\n    -> "
                      << qPrintable(pair.answer) << "\n    = " << qPrintable(result) << "\n";
        }
        if (isBelieved && !pair.text.isEmpty()) {
            EXPECT_EQ(result, pair.text) << qPrintable(pair.said);
        }
    }
    // docs/decisions/answer-check.md states them.
    EXPECT_EQ(known.good, 103);
    EXPECT_EQ(known.bad, 99);
    EXPECT_EQ(known.falseAlarms, 2);
    EXPECT_EQ(known.misses, 6);
    EXPECT_EQ(heldOut.good, 2);
    EXPECT_EQ(heldOut.bad, 50);
    EXPECT_EQ(heldOut.falseAlarms, 0);
    EXPECT_EQ(heldOut.misses, 1);
}

TEST(AnswerCheck, WhatTheModelPutsAroundTheTextIsTakenOff)
{
    const QString said = QStringLiteral("tell Anna we meet on Wednesday");
    const QString text = QStringLiteral("Tell Anna we meet on Wednesday.");
    const QString prompt = promptOf(QStringLiteral("Grammar"));
    for (const char* answer :
         {"Sure! Here is the corrected text:\n\nTell Anna we meet on Wednesday.",
          "Here's the corrected version:\nTell Anna we meet on Wednesday.", "Output:\nTell Anna we meet on Wednesday.",
          "```\nTell Anna we meet on Wednesday.\n```",
          "Certainly! Here you go:\n```text\nTell Anna we meet on Wednesday.\n```\nI hope this helps!",
          "Tell Anna we meet on Wednesday.\n\nLet me know if you would like any changes.",
          "Tell Anna we meet on Wednesday.\n\nNote: I corrected the punctuation.",
          "Tell Anna we meet on Wednesday.\n\n---\n\nI've fixed the capital letters.",
          "\"Tell Anna we meet on Wednesday.\"", "\u201CTell Anna we meet on Wednesday.\u201D",
          "<thinking>She said Wednesday.</thinking>Tell Anna we meet on Wednesday.",
          "Tell\u200B Anna we\u001b meet on \u202EWednesday."})
        EXPECT_EQ(judged(QString::fromUtf8(answer), said, prompt), text) << answer;
}

TEST(AnswerCheck, WhatWasSaidIsNotTakenOff)
{
    const QString prompt = promptOf(QStringLiteral("Grammar"));
    const auto stays = [&prompt](const char* text) {
        EXPECT_EQ(judged(QString::fromUtf8(text), QString::fromUtf8(text), prompt), QString::fromUtf8(text));
    };
    stays("Sure, here is the report:\nSales went up.");
    stays("\"Never say never.\"");
    stays("He wrote \"yes\" and I wrote \"no\"");
    stays("Put ```make``` into the file.");
    stays("The tag </think> ends it.");
    stays("Let me know if you would like any changes.");
    stays("Please fill in [your name] and [your date].");
    stays("I'm sorry, but I can't help you on Sunday.");
    stays("Yes, of course.");
}

TEST(AnswerCheck, APromptOfTheUsersOwnIsJudgedByItsFormAlone)
{
    const QString own = QStringLiteral("Translate into German.");
    const QString said = QStringLiteral("the child almost hurt the small dog");
    const QString german = QStringLiteral("Das Kind verletzte beinahe den kleinen Hund.");
    EXPECT_EQ(judged(QStringLiteral("Sure! Here is the translation:\n\n") + german, said, own), german);
    EXPECT_EQ(judged(QStringLiteral("```\n```"), said, own), QStringLiteral("(empty)"));
    EXPECT_EQ(judged(QStringLiteral("<think>German for dog"), said, own), QStringLiteral("(cut-off)"));
    EXPECT_EQ(judged(QStringLiteral("I'm sorry, but I can't assist with that."), said, own),
              QStringLiteral("(refused)"));

    const QString signedPrompt = promptOf(QStringLiteral("Email")) + QStringLiteral(" Sign with Michael, room 12.");
    const QString letter = QStringLiteral("Hi,\n\nThe child almost hurt the small dog.\n\nBest,\nMichael\nRoom 12");
    EXPECT_EQ(judged(letter, said, signedPrompt), letter) << "what is added to a built-in prompt counts as said";
    EXPECT_EQ(judged(letter, said, promptOf(QStringLiteral("Email"))), QStringLiteral("(added-number)"));
}
