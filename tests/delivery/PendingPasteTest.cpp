// Texts that their window has not fetched yet.
#include "tests/delivery/PasteDeliveryFixture.h"

#include <QTranslator>

using namespace std::chrono_literals;
using namespace vantro;
using namespace vantro::doubles;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class PendingPasteTest : public PasteDeliveryFixture
{
};

/// Knows one key.
class GermanKeys final : public QTranslator
{
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* context, const char* text, const char*, int) const override
    {
        const bool isKnown = qstrcmp(context, "keys") == 0 && qstrcmp(text, "Ctrl") == 0;
        return isKnown ? QStringLiteral("Strg") : QString();
    }
};

} // namespace

TEST_F(PendingPasteTest, ASlowTargetGetsTwoSecondsToFetchTheText)
{
    targetReads_ = false;
    deliver();
    // A clipboard manager's interest says nothing about the target.
    pasteboard_.fetch(Selection::Clipboard, other);
    clock_.advance(1500ms);
    EXPECT_EQ(clipboard(), words);
    EXPECT_EQ(pasteboard_.fetch(Selection::Clipboard, editor), words);
    clock_.advance(50ms);
    EXPECT_EQ(clipboard(), former);

    pasteboard_.setByOther(Selection::Primary, QStringLiteral("highlighted"));
    deliver();
    clock_.advance(1999ms);
    EXPECT_EQ(clipboard(), words);
    clock_.advance(50ms);
    EXPECT_EQ(clipboard(), words) << "whoever pastes later must not find the former text, a password perhaps";
    EXPECT_FALSE(pasteboard_.isSecret(Selection::Clipboard));
    clock_.advance(10s);
    ASSERT_EQ(told_.size(), 1) << "once";
    EXPECT_TRUE(told_.front().contains(QStringLiteral("press Ctrl+V"))) << told_.front().toStdString();
    for (const auto selection : {Selection::Clipboard, Selection::Primary})
        EXPECT_EQ(pasteboard_.string(selection), words);

    pasteboard_.fetch(Selection::Clipboard, editor);
    clock_.advance(700ms);
    EXPECT_EQ(pasteboard_.fetch(Selection::Clipboard, editor), words) << "the user has pressed the keys as well";
    clock_.advance(300ms);
    EXPECT_EQ(clipboard(), former);
    EXPECT_EQ(pasteboard_.string(Selection::Primary), QStringLiteral("highlighted"));
}

TEST_F(PendingPasteTest, TheNoticeNamesTheKeysInTheUsersLanguage)
{
    GermanKeys german;
    QCoreApplication::installTranslator(&german);
    targetReads_ = false;
    deliver();
    clock_.advance(3s);
    ASSERT_EQ(told_.size(), 1);
    EXPECT_TRUE(told_.front().contains(QStringLiteral("press Strg+V"))) << told_.front().toStdString();
}

TEST_F(PendingPasteTest, ATextIsOwedUntilItsWindowHasFetchedIt)
{
    targetReads_ = false;
    deliver(QStringLiteral("One."));
    clock_.advance(1s);
    EXPECT_THAT(settled_, IsEmpty());
    pasteboard_.fetch(Selection::Clipboard, editor);
    clock_.advance(50ms);
    EXPECT_THAT(settled_, ElementsAre(QStringLiteral("One.")));

    deliver(QStringLiteral("Two."));
    clock_.advance(5s);
    deliver(QStringLiteral("Three."));
    delivery_->restoreNow();
    clock_.advance(5s);
    EXPECT_EQ(settled_.size(), 1) << "the process ends, and the clipboard with it";
    EXPECT_EQ(clipboard(), QStringLiteral("Two. Three."));

    workspace_.closeWindow(editor);
    deliver(QStringLiteral("Four."));
    EXPECT_THAT(settled_, ElementsAre(QStringLiteral("One."), QStringLiteral("Four."))) << "left to the user";
}

TEST_F(PendingPasteTest, ATargetThatIsBusyGetsOneKeystrokeForTwoTexts)
{
    targetReads_ = false;
    deliver(QStringLiteral("One."));
    clock_.advance(1500ms);
    deliver(QStringLiteral("Two."));
    EXPECT_EQ(outcome_, Outcome::Pasted);
    EXPECT_EQ(keys_.posted().size(), 1U);
    clock_.advance(1500ms);
    EXPECT_EQ(pasteboard_.fetch(Selection::Clipboard, editor), QStringLiteral("One. Two."));
    clock_.advance(50ms);
    EXPECT_EQ(clipboard(), former);

    deliver(QStringLiteral("Three."));
    clock_.advance(5s);
    EXPECT_EQ(told_.size(), 1);
    deliver(QStringLiteral("Four."));
    EXPECT_EQ(keys_.posted().size(), 2U) << "it has been told of, and still has its keystroke to answer";
    EXPECT_TRUE(pasteboard_.isSecret(Selection::Clipboard));
    clock_.advance(5s);
    EXPECT_EQ(told_.size(), 2);
    EXPECT_EQ(pasteboard_.fetch(Selection::Clipboard, editor), QStringLiteral("Three. Four."));
    clock_.advance(1s);
    EXPECT_EQ(clipboard(), former);
}

TEST_F(PendingPasteTest, AWindowThatStandsStillIsOwedItsTextWhileOthersGetTheirs)
{
    const auto deliverTo = [this](WindowID window, const QString& text) {
        workspace_.focus(window);
        delivery_->rememberTarget();
        deliver(text);
    };
    targetReads_ = false;
    deliverTo(editor, QStringLiteral("For the editor."));
    clock_.advance(3s);
    EXPECT_EQ(told_.size(), 1);
    deliverTo(other, QStringLiteral("For the other."));
    pasteboard_.fetch(Selection::Clipboard, other);
    clock_.advance(300ms);
    EXPECT_EQ(clipboard(), QStringLiteral("For the editor."))
        << "or it would paste the former text, a password perhaps";
    EXPECT_EQ(told_.size(), 1) << "what was told is still true";

    deliverTo(other, QStringLiteral("Once more."));
    pasteboard_.fetch(Selection::Clipboard, other);
    deliverTo(editor, QStringLiteral("And this."));
    EXPECT_EQ(keys_.posted().size(), 3U) << "its first keystroke will bring both";
    EXPECT_EQ(pasteboard_.fetch(Selection::Clipboard, editor), QStringLiteral("For the editor. And this."));
    clock_.advance(1s);
    EXPECT_EQ(clipboard(), former);
    EXPECT_EQ(settled_.size(), 4);

    deliverTo(editor, QStringLiteral("Not told of yet."));
    deliverTo(other, QStringLiteral("At once."));
    ASSERT_EQ(told_.size(), 2);
    EXPECT_TRUE(told_.back().contains(QStringLiteral("appears when"))) << told_.back().toStdString();
    workspace_.closeWindow(other);
    delivery_->rememberTarget();
    deliver(QStringLiteral("For nobody."));
    EXPECT_EQ(clipboard(), QStringLiteral("For nobody."));
    EXPECT_TRUE(told_.back().contains(QStringLiteral("in the history"))) << "what was told is true no more";
    clock_.advance(5s);
    EXPECT_EQ(settled_.size(), 7) << "nothing is owed";
}

TEST_F(PendingPasteTest, AWindowThatHadNoUseForATextGetsTheNextOne)
{
    targetReads_ = false;
    workspace_.setAnswering(true);
    deliver(QStringLiteral("For a button."));
    clock_.advance(1s);
    EXPECT_EQ(told_.size(), 0) << "it may take a moment";
    clock_.advance(2s);
    ASSERT_EQ(told_.size(), 1);
    EXPECT_TRUE(told_.front().contains(QStringLiteral("Click where it belongs"))) << told_.front().toStdString();
    EXPECT_EQ(clipboard(), QStringLiteral("For a button."));
    targetReads_ = true;
    deliver(QStringLiteral("For a field."));
    EXPECT_EQ(received_, QStringLiteral("For a field."));
    EXPECT_EQ(told_.size(), 2);
    clock_.advance(1s);
    EXPECT_EQ(clipboard(), former);
}

TEST_F(PendingPasteTest, AWindowThatCannotBeAskedGetsTheNextTextAfterTheNotice)
{
    targetReads_ = false;
    workspace_.setAskable(false);
    deliver(QStringLiteral("One."));
    clock_.advance(1s);
    deliver(QStringLiteral("Two."));
    EXPECT_EQ(keys_.posted().size(), 1U) << "it may be busy";
    clock_.advance(3s);
    deliver(QStringLiteral("Three."));
    EXPECT_EQ(keys_.posted().size(), 2U);
    EXPECT_EQ(clipboard(), QStringLiteral("Three."));
    pasteboard_.fetch(Selection::Clipboard, editor);
    clock_.advance(1s);
    EXPECT_EQ(clipboard(), former);
    EXPECT_EQ(settled_.size(), 3);
}

TEST_F(PendingPasteTest, ATextThatIsNotInTheHistoryIsNotForgotten)
{
    QStringList lost;
    const auto deliverUnstored = [&](const QString& text) {
        [](auto& self, QStringList& lost, QString text) -> QCoro::Task<> {
            const auto delivery = self.delivery_->deliver(text, {[&self, text] { self.settled_ << text; },
                                                                 [&lost, text] {
                                                                     lost << text;
                                                                 }});
            std::ignore = co_await delivery;
        }(*this, lost, text);
    };
    targetReads_ = false;
    deliverUnstored(QStringLiteral("One."));
    pasteboard_.setByOther(Selection::Clipboard, QStringLiteral("copied since"));
    clock_.advance(3s);
    EXPECT_THAT(lost, ElementsAre(QStringLiteral("One.")));
    EXPECT_TRUE(told_.last().contains(QStringLiteral("vantro retry"))) << told_.last().toStdString();

    deliverUnstored(QStringLiteral("Waits."));
    clock_.advance(3s);
    EXPECT_EQ(lost.size(), 1);
    pasteboard_.setByOther(Selection::Clipboard, QStringLiteral("copied since"));
    clock_.advance(1s);
    EXPECT_EQ(lost.size(), 2);
    lost.removeLast();

    deliverUnstored(QStringLiteral("Two."));
    pasteboard_.fetch(Selection::Clipboard, editor);
    clock_.advance(1s);
    EXPECT_EQ(lost.size(), 1);
    EXPECT_THAT(settled_, ElementsAre(QStringLiteral("Two.")));

    session_.setAway(true);
    deliverUnstored(QStringLiteral("Three."));
    deliverUnstored(QStringLiteral("Four."));
    EXPECT_EQ(clipboard(), QStringLiteral("Three.\n\nFour."));
    pasteboard_.fetch(Selection::Clipboard, editor);
    deliverUnstored(QStringLiteral("Five."));
    EXPECT_EQ(clipboard(), QStringLiteral("Five.")) << "the others have been pasted";
    EXPECT_EQ(lost.size(), 1);
    session_.setAway(false);
    targetReads_ = true;
    deliverUnstored(QStringLiteral("Pasted."));
    clock_.advance(1s);
    session_.setAway(true);
    deliverUnstored(QStringLiteral("Again."));
    EXPECT_EQ(clipboard(), QStringLiteral("Five.\n\nAgain.")) << "it came back after the paste";

    pasteboard_.setOffered(false);
    deliverUnstored(QStringLiteral("Six."));
    EXPECT_EQ(lost.last(), QStringLiteral("Six."));
    EXPECT_TRUE(delivery_->explanation(Outcome::UserAway).contains(QStringLiteral("vantro retry")));
    deliver(QStringLiteral("Seven."));
    EXPECT_TRUE(delivery_->explanation(Outcome::UserAway).contains(QStringLiteral("history")));
}

TEST_F(PendingPasteTest, AManagerThatTakesTheTextOverDoesNotMakeItLookFetched)
{
    targetReads_ = false;
    deliver();
    pasteboard_.setByOther(Selection::Clipboard, words);
    clock_.advance(2100ms);
    EXPECT_EQ(clipboard(), words);
    EXPECT_EQ(told_.size(), 1);

    // Where it always does so nobody can tell, and the next text must not be held back.
    deliver(QStringLiteral("Next."));
    EXPECT_EQ(keys_.posted().size(), 2U);
    EXPECT_EQ(clipboard(), QStringLiteral("Next."));
    EXPECT_EQ(told_.size(), 1);
}

TEST_F(PendingPasteTest, AfterTheNoticeWhatTheUserDoesWithTheClipboardCounts)
{
    targetReads_ = false;
    deliver();
    clock_.advance(2100ms);
    pasteboard_.setByOther(Selection::Clipboard, QStringLiteral("copied since"));
    clock_.advance(1s);
    EXPECT_EQ(settled_.size(), 1);
    deliver(QStringLiteral("Next."));
    EXPECT_EQ(keys_.posted().size(), 2U);
    clock_.advance(2100ms);
    workspace_.closeWindow(editor);
    clock_.advance(1s);
    EXPECT_EQ(settled_.size(), 2);
    EXPECT_EQ(clipboard(), QStringLiteral("Next."));
    EXPECT_EQ(told_.size(), 2) << "once each";
}
