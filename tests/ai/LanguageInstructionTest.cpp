#include "vantro/ai/LanguageInstruction.h"

#include "platform/linux/cld2/Cld2LanguageRecognizer.h"

#include <gtest/gtest.h>

using namespace vantro;

namespace {

QString instructionFor(const char16_t* transcript)
{
    return languageInstruction(Cld2LanguageRecognizer(), QString::fromUtf16(transcript));
}

QString instructionFor(const char16_t* transcript, const char* spoken)
{
    return languageInstruction(Cld2LanguageRecognizer(), QString::fromUtf16(transcript), QLatin1String(spoken));
}

QString only(const char16_t* name)
{
    return QStringLiteral("\n\nCRITICAL: Respond ONLY in %1. Do not translate or switch to any other language.")
        .arg(QString::fromUtf16(name));
}

} // namespace

TEST(LanguageInstruction, NamesTheLanguageOfTheTranscriptInItself)
{
    EXPECT_EQ(instructionFor(u"Could you please send me the report before Friday?"), only(u"English"));
    EXPECT_EQ(instructionFor(u"Mañana tenemos una reunión con el equipo de ventas."), only(u"español"));
    EXPECT_EQ(instructionFor(u"Wir treffen uns morgen um neun Uhr im großen Sitzungssaal."), only(u"Deutsch"));
    EXPECT_EQ(instructionFor(u"私は明日の朝に東京へ行きます。"), only(u"日本語"));
    EXPECT_EQ(instructionFor(u"אני רוצה לשלוח הודעה לחבר שלי היום"), only(u"עברית"));
}

TEST(LanguageInstruction, AsksForEnglishWhereNoLanguageIsFound)
{
    const QString english = QStringLiteral("\n\nCRITICAL: Respond ONLY in English.");
    EXPECT_EQ(instructionFor(u"12 345 678"), english);
    EXPECT_EQ(instructionFor(u""), english);
    EXPECT_EQ(instructionFor(u"🙂🙂"), english);
}

TEST(LanguageInstruction, BelievesTheSpeechEngineWhereAFewWordsTellNothing)
{
    EXPECT_EQ(instructionFor(u"Vale, nos vemos.", "es"), only(u"español"));
    EXPECT_EQ(instructionFor(u"Oui, d'accord.", "fr"), only(u"français"));
    EXPECT_EQ(instructionFor(u"Да, хорошо.", "ru"), only(u"русский"));
    EXPECT_EQ(instructionFor(u"Ja, is goed.", "nl"), only(u"Nederlands"));
    EXPECT_EQ(instructionFor(u"12 345 678", "de"), only(u"Deutsch"));
    EXPECT_EQ(instructionFor(u"Wir treffen uns morgen um neun Uhr im großen Sitzungssaal.", "en"), only(u"Deutsch"))
        << "a whole sentence tells more than a setting that was forgotten";
}
