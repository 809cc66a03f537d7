#include "base/Settings.h"
#include "vantro/text/CleaningSettings.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace vantro;

namespace {

class Cleaning : public testing::Test
{
protected:
    void expect(const char* language, const char* said, const char* written)
    {
        EXPECT_EQ(TextCleaner::cleaned(QString::fromUtf8(said), settings.rules(QLatin1String(language))),
                  QString::fromUtf8(written));
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("vantro.ini"));
    UserDefaults defaults{path};
    CleaningSettings settings{defaults};
};

} // namespace

TEST_F(Cleaning, TakesOutFillersAndDoubledWordsAndMakesSentences)
{
    expect("en", "um so tell Anna uh we meet on on Tuesday", "So tell Anna we meet on Tuesday.");
    expect("en", "Um, the the report is, uh, late. it comes tomorrow", "The report is, late. It comes tomorrow.");
    expect("en", "that is very very good", "That is very very good.");
    expect("en", "is it late?", "Is it late?");
    expect("de", "äh also wir wir treffen uns ähm um neun", "Also wir treffen uns um neun.");
    expect("de", "Leute, die die Regeln kennen", "Leute, die die Regeln kennen.");
    expect("es", "eh nos vemos el el jueves", "Nos vemos el jueves.");
    expect("fr", "euh on se voit à à midi", "On se voit à midi.");
    expect("en", "umbrella erm", "Umbrella.");
    expect("en", "um uh", "um uh");
}

TEST_F(Cleaning, WritesSpokenSignsHoweverTheEngineHasHeardThem)
{
    expect("en", "dear Anna comma new line we meet on Tuesday full stop new paragraph see you",
           "Dear Anna,\nWe meet on Tuesday.\n\nSee you.");
    expect("en", "Dear Anna, comma. New line. We meet on Tuesday.", "Dear Anna,\nWe meet on Tuesday.");
    expect("en", "are you coming question mark I am", "Are you coming? I am.");
    expect("de", "hallo Anna Komma neue Zeile kommst du Fragezeichen", "Hallo Anna,\nKommst du?");
    expect("es", "hola Ana coma nueva línea nos vemos", "Hola Ana,\nNos vemos.");
    expect("fr", "bonjour virgule à la ligne on se voit demain", "Bonjour,\nOn se voit demain.");
}

TEST_F(Cleaning, RulesAreTheUsersAndTheOthersStayBuiltIn)
{
    const auto builtIn = settings.rules(QStringLiteral("de"));
    settings.setRules(QStringLiteral("en"),
                      CleaningSettings::fromText(QStringLiteral(" like \n\nslash = /\nend = \\n")));
    expect("en", "um it is like this slash that end next", "Um it is this/ that\nNext.");
    UserDefaults again(path);
    CleaningSettings later(again);
    EXPECT_EQ(CleaningSettings::asText(later.rules(QStringLiteral("en"))),
              QStringLiteral("like\nslash = /\nend = \\n"));
    EXPECT_EQ(later.rules(QStringLiteral("de")), builtIn);
    EXPECT_EQ(later.rules(QStringLiteral("nl")), later.rules(QStringLiteral("en")));
    later.reset(QStringLiteral("en"));
    EXPECT_NE(later.rules(QStringLiteral("en")), settings.rules(QStringLiteral("en")));
    again.set(setting::cleaningRules, "damaged");
    const CleaningSettings afterwards(again);
    EXPECT_EQ(afterwards.rules(QStringLiteral("de")), builtIn);
    EXPECT_EQ(again.read<QByteArray>(QStringLiteral("cleaningRules.unreadable")), "damaged");
}
