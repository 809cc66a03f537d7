#include "vantro/text/TextReplacer.h"

#include <gtest/gtest.h>

#include <string_view>

using namespace std::string_view_literals;
using namespace vantro;

namespace {

struct Case
{
    const char* find;
    const char* replace;
    const char* text;
    const char* expected;
};

class Replacing : public testing::TestWithParam<Case>
{
};

} // namespace

TEST_P(Replacing, GivesTheExpectedText)
{
    const Case& c = GetParam();
    const QString result = TextReplacer::applyReplacement(QString::fromUtf8(c.text), QString::fromUtf8(c.find),
                                                          QString::fromUtf8(c.replace));
    EXPECT_EQ(result.toStdString(), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    WholeWords, Replacing,
    testing::Values(Case{"cat", "dog", "concatenate cat cat.", "concatenate dog dog."},
                    Case{"CAT", "dog", "Cat, cAt", "dog, dog"}, Case{"  hello  ", "hi", "say hello now", "say hi now"},
                    Case{"cat", "dog", "cat_food 2cat cat2", "cat_food 2cat cat2"},
                    Case{"um", "er", "umständlich um", "umständlich er"}, Case{"mer", "x", "Krämer mer", "Krämer x"},
                    Case{"über", "ueber", "Über vorüber", "ueber vorüber"},
                    Case{"caf", "x", "cafe\u0301 caf", "cafe\u0301 x"},
                    Case{"cafe\u0301", "bar", "Cafe\u0301, cafe\u0301s", "bar, cafe\u0301s"},
                    Case{"strasse", "Weg", "die Straße", "die Weg"},
                    Case{"привет", "пока", "Привет, приветы", "пока, приветы"}, Case{"٣", "3", "٣ und ٣٣", "3 und ٣٣"},
                    Case{"new\nline", "x", "a new\nline b", "a x b"}));

INSTANTIATE_TEST_SUITE_P(
    ExpressionSyntaxIsText, Replacing,
    testing::Values(Case{"a.b", "x", "axb a.b", "axb x"}, Case{"c++", "C", "I like c++ a lot", "I like C a lot"},
                    Case{"c++", "C", "c++x c++, c++", "c++x c++, C"},
                    Case{".net", "NET", "asp.net .net", "asp.net NET"},
                    Case{"price", "$1 \\1 $0", "the price", "the $1 \\1 $0"},
                    Case{"(?i)[a-z]{2}|^$", "x", "ab (?i)[a-z]{2}|^$ cd", "ab x cd"},
                    Case{"\\Q.\\E", "x", "\\Q.\\E .", "x ."}, Case{"#1 - ~", "x", "is #1 - ~ ok", "is x ok"},
                    Case{"🙂", "smile", "a 🙂 b🙂", "a smile b🙂"}, Case{"   ", "x", "a b", "a b"}));

INSTANTIATE_TEST_SUITE_P(
    DeletedWords, Replacing,
    testing::Values(Case{"um", "", "So, um, I think", "So, I think"}, Case{"um", "", "I think UM.", "I think."},
                    Case{"um", "", "Um so um yes", "so yes"}, Case{"um", "", "first; um; second", "first; second"},
                    Case{"um", "", "wait um ! no", "wait! no"}, Case{"um", " ", "So, um, I", "So,  , I"},
                    Case{"um", "", "line\num\nend", "line\n\nend"}, Case{"um", "", "um", ""}));

TEST(TextReplacer, AppliesTheListInOrderEachToTheResultBefore)
{
    const std::vector<TextReplacement> replacements{{QUuid::createUuid(), QStringLiteral("a"), QStringLiteral("b")},
                                                    {QUuid::createUuid(), QStringLiteral("b"), QStringLiteral("c")}};
    EXPECT_EQ(TextReplacer::applyReplacements(QStringLiteral("a b x"), replacements), QStringLiteral("c c x"));
}

TEST(TextReplacer, KeepsWhatItDoesNotReplace)
{
    constexpr auto strange = u"x\0y cat שלום 👩‍👩‍👧 é́ "sv;
    const QString odd = QString::fromUtf16(strange.data(), strange.size()) + QChar(0xD800) + QStringLiteral(" cat");
    QString expected = odd;
    expected.replace(QStringLiteral("cat"), QStringLiteral("dog"));
    EXPECT_EQ(TextReplacer::applyReplacement(odd, QStringLiteral("cat"), QStringLiteral("dog")), expected);

    const QString megabyte = QStringLiteral("word ").repeated(200'000);
    EXPECT_EQ(TextReplacer::applyReplacement(megabyte, QStringLiteral("word"), QStringLiteral("w")),
              QStringLiteral("w ").repeated(200'000));
}
