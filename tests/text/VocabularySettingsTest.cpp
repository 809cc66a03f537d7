#include "vantro/text/VocabularySettings.h"

#include "vantro/text/TextReplacer.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace vantro;

namespace {

class Vocabulary : public testing::Test
{
protected:
    [[nodiscard]] QString path() const { return folder.filePath(QStringLiteral("vantro.ini")); }
    [[nodiscard]] QByteArray stored(const char* key) const
    {
        return UserDefaults(path()).read<QByteArray>(QLatin1String(key)).value_or(QByteArray());
    }
    void store(const char* key, const QByteArray& value) const
    {
        UserDefaults(path()).write(QLatin1String(key), value);
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(Vocabulary, ListsSurviveARestartInTheirOrder)
{
    {
        UserDefaults defaults(path());
        VocabularySettings settings(defaults);
        for (const char* word : {"  Foo ", "foo", "Foo", " \n", "Bär, \"x\""})
            settings.addVocabularyWord(QString::fromUtf8(word));
        settings.addReplacement(QStringLiteral(" a "), QString());
        settings.addReplacement(QStringLiteral("\t"), QStringLiteral("nothing to find"));
        settings.addReplacement(QStringLiteral("b"), QStringLiteral("c"));
        settings.addReplacement(QStringLiteral("b"), QStringLiteral("c"));
        settings.removeReplacement(2);
        settings.removeReplacement(7);
        auto changed = settings.textReplacements().at(1);
        changed.replace = QStringLiteral("d");
        settings.updateReplacement(changed, 1);
        settings.updateReplacement(changed, 2);
    }
    UserDefaults defaults(path());
    const VocabularySettings settings(defaults);
    EXPECT_EQ(settings.customVocabulary(),
              QStringList({QStringLiteral("Foo"), QStringLiteral("foo"), QStringLiteral("Bär, \"x\"")}));
    ASSERT_EQ(settings.textReplacements().size(), 2U);
    EXPECT_EQ(settings.textReplacements()[0].find, QStringLiteral(" a "));
    EXPECT_EQ(settings.textReplacements()[1].replace, QStringLiteral("d"));
    const QString id = settings.textReplacements()[0].id.toString(QUuid::WithoutBraces).toUpper();
    EXPECT_TRUE(
        stored("textReplacements").contains("{\"find\":\" a \",\"id\":\"" + id.toLatin1() + "\",\"replace\":\"\"}"))
        << stored("textReplacements").toStdString();
}

TEST_F(Vocabulary, StoredWordsAreCleanedWithoutBeingWrittenBack)
{
    store("customVocabulary", R"(["  Foo", "Foo", "", "bar"])");
    UserDefaults defaults(path());
    const VocabularySettings settings(defaults);
    EXPECT_EQ(settings.customVocabulary(), QStringList({QStringLiteral("Foo"), QStringLiteral("bar")}));
    EXPECT_EQ(stored("customVocabulary"), R"(["  Foo", "Foo", "", "bar"])");
}

TEST_F(Vocabulary, WhatCannotBeReadIsKeptWhenItIsOverwritten)
{
    const QByteArray broken = R"([{"id":"no","find":"a","replace":"b"}])";
    store("textReplacements", broken);
    store("customVocabulary", "[1]");
    UserDefaults defaults(path());
    VocabularySettings settings(defaults);
    EXPECT_TRUE(settings.textReplacements().empty());
    EXPECT_TRUE(settings.customVocabulary().isEmpty());
    EXPECT_EQ(stored("textReplacements"), broken);
    settings.addReplacement(QStringLiteral("x"), QStringLiteral("y"));
    settings.addVocabularyWord(QStringLiteral("x"));
    EXPECT_EQ(stored("textReplacements.unreadable"), broken);
    EXPECT_EQ(stored("customVocabulary.unreadable"), "[1]");
    settings.addVocabularyWord(QStringLiteral("y"));
    EXPECT_EQ(stored("customVocabulary.unreadable"), "[1]");
    EXPECT_EQ(stored("customVocabulary"), R"(["x","y"])");
}

TEST_F(Vocabulary, TellsTheLimitAndSeesWhatAnotherProcessChanges)
{
    UserDefaults defaults(path());
    VocabularySettings settings(defaults);
    EXPECT_FALSE(settings.vocabularyLimitNotice(50));
    EXPECT_TRUE(settings.vocabularyLimitNotice(51));

    UserDefaults others(path());
    VocabularySettings command(others);
    for (int i = 0; i < 100; ++i)
        command.addReplacement(QStringLiteral("w%1").arg(i), QString());
    EXPECT_EQ(settings.textReplacements().size(), 0U);
    int told = 0;
    QObject::connect(&settings, &VocabularySettings::textReplacementsChanged, [&told] { ++told; });
    defaults.reload();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(settings.textReplacements().size(), 100U);
    EXPECT_TRUE(settings.replacementLimitNotice());
    settings.reset();
    EXPECT_EQ(stored("textReplacements"), "[]");
}
