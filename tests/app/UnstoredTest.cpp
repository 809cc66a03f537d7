// A desktop that lets no program copy, and a history that is off: a text is nowhere, and its recording is kept.
#include "base/RunTask.h"
#include "tests/app/DictationFixture.h"

using namespace vantro;

namespace {

class UnstoredTest : public DictationTest
{
protected:
    UnstoredTest()
    {
        pasteboard.setOffered(false);
        isKeeping = false;
    }
    [[nodiscard]] bool isKept()
    {
        std::ignore = runTask(spool.takeLeft()); // takes nothing that somebody has
        return keptFiles().size() == 1;
    }
    [[nodiscard]] bool isSaid(const char* words) const
    {
        return !shell.huds.empty() && shell.huds.back().reason.contains(QLatin1String(words));
    }
};

} // namespace

TEST_F(UnstoredTest, KeepsTheRecordingOfATextThatIsOnlyCopied)
{
    defaults.set(setting::autoPasteEnabled, false);
    dictate(QStringLiteral("Nowhere."));
    EXPECT_TRUE(isSaid("vantro retry"));
    EXPECT_TRUE(isKept());
    runTask(recovery.discardAll());

    isKeeping = true;
    dictate(QStringLiteral("Stored."));
    EXPECT_TRUE(isSaid("in the history"));
    EXPECT_FALSE(isKept());
}

TEST_F(UnstoredTest, OffersTheRecordingOfATextThatCouldNotBeRewritten)
{
    defaults.set(setting::defaultProcessingMode, QStringLiteral("Notes"));
    store.full = true;
    dictate(QStringLiteral("Buy bread."));
    ASSERT_TRUE(shell.answerOffer);
    EXPECT_FALSE(shell.alerts.back().contains(QStringLiteral("clipboard")));
    EXPECT_TRUE(isKept());
}

TEST_F(UnstoredTest, SaysNothingOfTheOriginalsPlace)
{
    dictate(QStringLiteral("Nowhere."));
    EXPECT_TRUE(isSaid("vantro retry"));
    const std::size_t told = shell.huds.size();
    EXPECT_TRUE(delegate.pasteOriginal().contains(QStringLiteral("lets no program copy")));
    EXPECT_EQ(shell.huds.size(), told);
    EXPECT_TRUE(isKept());
}
