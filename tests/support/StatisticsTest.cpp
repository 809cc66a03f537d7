// What is counted of dictations.
#include "vantro/support/Statistics.h"

#include "base/Settings.h"
#include "base/testing/ManualClock.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace vantro;

TEST(Statistics, CountsEachDaysWordsUntilItIsSwitchedOff)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("statistics.json"));
    UserDefaults defaults(folder.filePath(QStringLiteral("vantro.ini")));
    doubles::ManualClock clock;
    Statistics statistics(defaults, clock, path);
    const QDate today = clock.wallClock().date();
    statistics.add(QStringLiteral("Eighty words a minute, it's said."), 4s);
    statistics.add(QStringLiteral("..."), 4s);
    clock.setWallClock(clock.wallClock().addDays(1));
    statistics.add(QString(QStringLiteral("word ")).repeated(400), 120s);
    EXPECT_EQ(statistics.days().at(today), (Statistics::Day{1, 6, 4s}));
    EXPECT_EQ(Statistics(defaults, clock, path).total(), (Statistics::Day{2, 406, 124s}));
    EXPECT_EQ(Statistics::saved(statistics.total()), 8min);
    EXPECT_EQ(Statistics::saved({1, 1, 60s}), 0min);

    clock.setWallClock(clock.wallClock().addDays(400));
    statistics.add(QStringLiteral("later"), 1s);
    EXPECT_EQ(statistics.total().words, 1) << "for a year";
    defaults.set(setting::keepStatistics, false);
    EXPECT_TRUE(statistics.days().empty());
    EXPECT_FALSE(QFile::exists(path));
    statistics.add(QStringLiteral("not any more"), 1s);
    EXPECT_TRUE(statistics.days().empty());
}

TEST(Statistics, CountsWordsOfScriptsWithoutSpaces)
{
    EXPECT_EQ(Statistics::wordsIn(QStringLiteral("Das geht's an \u2013 12 Euro.")), 5);
    EXPECT_EQ(Statistics::wordsIn(QStringLiteral("\u4eca\u5929\u5929\u6c14 OK")), 3);
    EXPECT_EQ(Statistics::wordsIn(QStringLiteral(" ?! ")), 0);
}
