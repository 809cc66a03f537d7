#include "tests/store/StoreTestSupport.h"
#include "vantro/store/SearchText.h"

using namespace std::chrono_literals;
using namespace vantro;

namespace {

class SearchTest : public StoreTest
{
protected:
    void say(const QString& text)
    {
        store.saveTranscription(text, {}, ProcessingMode::Normal);
        clock.advance(1s);
    }
};

} // namespace

TEST_F(SearchTest, FindsBeginningsOfWordsInAnyOrderWithoutCaseOrAccents)
{
    const QString cafe = QStringLiteral(u"Meet me at the Caf\u00e9 in K\u00f6ln");
    const QString decomposed = QStringLiteral(u"the cafe\u0301 is closed");
    say(cafe);
    say(decomposed);
    say(QStringLiteral("nothing of the kind"));
    EXPECT_EQ(found(QStringLiteral("cafe")), (QStringList{decomposed, cafe}));
    EXPECT_EQ(found(QStringLiteral(u"CAF\u00c9")), (QStringList{decomposed, cafe}));
    EXPECT_EQ(found(QStringLiteral("koln  mee")), QStringList{cafe});
    EXPECT_EQ(found(QStringLiteral("c")), (QStringList{decomposed, cafe}));
    EXPECT_TRUE(found(QStringLiteral("afe")).isEmpty());
    EXPECT_EQ(found(QString()).size(), 3);
    EXPECT_EQ(found(QStringLiteral(" \n ")).size(), 3);
}

TEST_F(SearchTest, FollowsWhatIsFormattedAndDeleted)
{
    const QUuid id = store.saveTranscription(QStringLiteral("raw words"), ProcessingMode::Email);
    EXPECT_TRUE(found(QStringLiteral("polished")).isEmpty());
    store.updateFormatted(id, QStringLiteral("polished sentence"));
    EXPECT_EQ(found(QStringLiteral("polished raw")).size(), 1);
    store.updateFormatted(id, QStringLiteral("another"));
    EXPECT_TRUE(found(QStringLiteral("polished")).isEmpty());
    store.deleteTranscriptions({id});
    EXPECT_TRUE(found(QStringLiteral("raw")).isEmpty());
    EXPECT_EQ(integrityOf(store), QStringLiteral("ok"));
}

TEST_F(SearchTest, TakesEveryCharacterAsTyped)
{
    const QString quoted = QStringLiteral("he said \"never again\" and don't AND NOT (me) foo-bar column:text ^x *");
    say(quoted);
    say(QStringLiteral("plain"));
    for (const char* typed : {"\"never again\"",
                              "\"",
                              "never\"again",
                              "don't",
                              "AND",
                              "not",
                              "NOT again",
                              "(me)",
                              "(",
                              "foo-bar",
                              "column:text",
                              "^x",
                              "*",
                              "nev*",
                              "again)",
                              "'",
                              "never AND again",
                              "\"never",
                              "{he said}: never",
                              "-"})
        EXPECT_EQ(found(QLatin1String(typed)), QStringList{quoted}) << typed;
    EXPECT_TRUE(found(QStringLiteral("OR nothing")).isEmpty());
    EXPECT_TRUE(found(QStringLiteral("NEAR(he never)")).isEmpty());
    EXPECT_TRUE(found(QStringLiteral("--; DROP TABLE Transcription")).isEmpty());
    EXPECT_EQ(found(QStringLiteral(u"never\u0000again")), QStringList{quoted});
}

TEST_F(SearchTest, FindsSignsAndEmoji)
{
    const QString languages = QStringLiteral("I prefer C++ to C");
    const QString party = QStringLiteral(u"party \U0001F389\U0001F469\u200D\U0001F4BB tonight");
    const QString price = QStringLiteral(u"it costs 20 \u20ac");
    say(languages);
    say(party);
    say(price);
    say(QStringLiteral("C is old"));
    EXPECT_EQ(found(QStringLiteral("c++")), QStringList{languages});
    EXPECT_EQ(found(QStringLiteral(u"\U0001F389")), QStringList{party});
    EXPECT_EQ(found(QStringLiteral(u"tonight \U0001F469\u200D\U0001F4BB")), QStringList{party});
    EXPECT_EQ(found(QStringLiteral(u"20\u20ac")), QStringList{price});
    EXPECT_TRUE(found(QStringLiteral(u"\U0001F600")).isEmpty());
}

TEST_F(SearchTest, FindsAnyPartOfATextWrittenWithoutBlanks)
{
    const QString weather = QStringLiteral(u"\u4eca\u65e5\u306f\u5929\u6c17\u304c\u3044\u3044\u3067\u3059\u306d");
    const QString coffee = QStringLiteral(u"\u30b3\u30fc\u30d2\u30fc and tea");
    const QString thai = QStringLiteral(u"\u0e2a\u0e27\u0e31\u0e2a\u0e14\u0e35\u0e04\u0e23\u0e31\u0e1a");
    say(weather);
    say(coffee);
    say(thai);
    EXPECT_EQ(found(QStringLiteral(u"\u5929\u6c17")), QStringList{weather});
    EXPECT_TRUE(found(QStringLiteral(u"\u6c17\u5929")).isEmpty()) << "in this order only";
    EXPECT_EQ(found(QStringLiteral(u"\u30fc\u30d2 TEA")), QStringList{coffee});
    EXPECT_EQ(found(QStringLiteral(u"\u0e2a\u0e14\u0e35")), QStringList{thai});
    const auto row = rows().front();
    store.updateFormatted(row.id, QStringLiteral(u"\u6f22\u5b57"));
    EXPECT_EQ(found(QStringLiteral(u"\u5b57")).size(), 1);
    store.updateFormatted(row.id, QStringLiteral("hello"));
    EXPECT_TRUE(found(QStringLiteral(u"\u5b57")).isEmpty());
    EXPECT_EQ(integrityOf(store), QStringLiteral("ok"));
}

TEST_F(SearchTest, FindsWhatComesBehindANulAndInALongText)
{
    const QString text =
        QStringLiteral(u"before\u0000behind ") + QStringLiteral("filler ").repeated(150'000) + QStringLiteral("needle");
    say(text);
    EXPECT_EQ(found(QStringLiteral("behind")).size(), 1);
    EXPECT_EQ(found(QStringLiteral("needle")).size(), 1);
}

TEST_F(SearchTest, MarksWhatItFindsInTheTextAsItIsWritten)
{
    const auto marked = [](const QString& text, const char* typed) {
        QStringList parts;
        for (const SearchHit& hit : searchHits(text, SearchQuery(QString::fromUtf8(typed))))
            parts << text.mid(hit.begin, hit.length);
        return parts;
    };
    const QString text = QString::fromUtf8("Das Café in Köln: C++ und Recaféina, 東京都");
    EXPECT_EQ(marked(text, "koln CAFE"), (QStringList{QString::fromUtf8("Café"), QString::fromUtf8("Köln")}));
    EXPECT_EQ(marked(text, "(caf\u00e9)"), QStringList{QString::fromUtf8("Café")}) << "beginnings of words only";
    EXPECT_EQ(marked(text, "c++"), (QStringList{QStringLiteral("C"), QStringLiteral("C"), QStringLiteral("++")}));
    EXPECT_EQ(marked(text, "京"), QStringList{QString::fromUtf8("京")});
    EXPECT_EQ(marked(text, "nothing"), QStringList());
}

TEST_F(SearchTest, FindsWhatWasNotRewritten)
{
    say(QStringLiteral("plain"));
    const QUuid rewritten = store.saveTranscription(QStringLiteral("one"), ProcessingMode::Email);
    store.updateFormatted(rewritten, QStringLiteral("One."));
    store.saveTranscription(QStringLiteral("two"), ProcessingMode::Grammar);
    HistoryFilter filter;
    filter.isUnrewritten = true;
    ASSERT_EQ(rows(filter).size(), 1U);
    EXPECT_EQ(rows(filter).front().transcription, QStringLiteral("two"));
}
