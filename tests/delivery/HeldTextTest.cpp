// Several texts on their way at once: to windows of one program, and behind one that only the clipboard has.
#include "base/Settings.h"
#include "tests/delivery/PasteDeliveryFixture.h"

using namespace std::chrono_literals;
using namespace vantro;
using namespace vantro::doubles;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// The editor and another window belong to one program, which stands still.
class HeldTextTest : public PasteDeliveryFixture
{
protected:
    static constexpr WindowID third = 4;

    HeldTextTest()
    {
        workspace_.openWindow(third);
        pasteboard_.setProgram({editor, other});
        targetReads_ = false;
    }
    void deliverTo(WindowID window, const char* text)
    {
        workspace_.focus(window);
        delivery_->rememberTarget();
        deliver(QString::fromUtf8(text));
    }
    void deliverUnstored(const char* text)
    {
        [](HeldTextTest& self, QString text) -> QCoro::Task<> {
            const auto delivery = self.delivery_->deliver(text, {[&self, text] { self.settled_ << text; },
                                                                 [&self, text] {
                                                                     self.lost_ << text;
                                                                 }});
            std::ignore = co_await delivery;
        }(*this, QString::fromUtf8(text));
    }
    /// The program answers the keystroke that @p window was sent.
    QString fetch(WindowID window)
    {
        const auto text = pasteboard_.fetch(Selection::Clipboard, window);
        clock_.advance(1s);
        return text.value_or(QString());
    }
    [[nodiscard]] bool isToldOf(const char* words) const
    {
        return !told_.isEmpty() && told_.last().contains(QLatin1String(words));
    }

    QStringList lost_;
};

} // namespace

TEST_F(HeldTextTest, OneWindowsTextIsNotTakenByTheKeystrokeOfAnother)
{
    deliverTo(editor, "For the editor.");
    clock_.advance(3s);
    deliverTo(other, "For the other.");
    ASSERT_EQ(outcome_, Outcome::Held);
    EXPECT_TRUE(delivery_->explanation(*outcome_).contains(QStringLiteral("follows when it responds")));
    deliverTo(other, "And this.");
    EXPECT_EQ(keys_.posted().size(), 1U);
    clock_.advance(1min);
    EXPECT_EQ(fetch(editor), QStringLiteral("For the editor."));
    EXPECT_EQ(keys_.posted().size(), 2U) << "its user waits there";
    EXPECT_EQ(fetch(other), QStringLiteral("For the other."));
    EXPECT_EQ(fetch(other), QStringLiteral("And this."));
    EXPECT_EQ(clipboard(), former);
    EXPECT_EQ(settled_.size(), 3);
}

TEST_F(HeldTextTest, WhoHasMovedOnMeanwhileFindsTheTextOnTheClipboard)
{
    deliverTo(editor, "For the editor.");
    deliverTo(other, "For the other.");
    workspace_.focus(third);
    EXPECT_EQ(fetch(editor), QStringLiteral("For the editor."));
    EXPECT_EQ(keys_.posted().size(), 1U);
    EXPECT_EQ(clipboard(), QStringLiteral("For the other."));
    EXPECT_TRUE(isToldOf("on the clipboard")) << told_.last().toStdString();
    EXPECT_EQ(settled_.size(), 2);
    EXPECT_THAT(workspace_.activations(), IsEmpty());

    deliverTo(editor, "Once more.");
    deliverTo(other, "Before it closes.");
    clock_.advance(3s);
    workspace_.closeWindow(editor);
    clock_.advance(1s);
    EXPECT_EQ(fetch(other), QStringLiteral("Before it closes."));
    EXPECT_EQ(settled_.size(), 4);
}

TEST_F(HeldTextTest, OneThatIsSaidWhileAnotherIsStillHeldComesAfterIt)
{
    deliverTo(editor, "For the editor.");
    deliverTo(other, "First.");
    pasteboard_.fetch(Selection::Clipboard, editor);
    deliverTo(other, "Second."); // before the fetch has been seen
    EXPECT_EQ(keys_.posted().size(), 1U);
    clock_.advance(1s);
    EXPECT_EQ(fetch(other), QStringLiteral("First."));
    EXPECT_EQ(fetch(other), QStringLiteral("Second."));
}

TEST_F(HeldTextTest, WaitsForAUserWhoIsAway)
{
    for (const bool comesBackToIt : {true, false}) {
        const auto before = keys_.posted().size();
        deliverTo(editor, "For the editor.");
        deliverTo(other, "For the other.");
        session_.setAway(true);
        EXPECT_EQ(fetch(editor), QStringLiteral("For the editor."));
        clock_.advance(1min);
        EXPECT_EQ(keys_.posted().size(), before + 1) << "a locked screen would take it";
        EXPECT_EQ(clipboard(), former);
        if (!comesBackToIt)
            workspace_.focus(third);
        session_.setAway(false);
        clock_.advance(1s);
        if (comesBackToIt)
            EXPECT_EQ(fetch(other), QStringLiteral("For the other."));
        else
            EXPECT_EQ(clipboard(), QStringLiteral("For the other."));
        EXPECT_EQ(settled_.size(), comesBackToIt ? 2 : 4);
    }
}

TEST_F(HeldTextTest, WaitsWhileAWindowOfOursIsInFront)
{
    deliverTo(editor, "For the editor.");
    deliverTo(other, "For the other.");
    workspace_.focus(launcher);
    EXPECT_EQ(fetch(editor), QStringLiteral("For the editor."));
    clock_.advance(1min);
    EXPECT_EQ(keys_.posted().size(), 1U);
    EXPECT_EQ(clipboard(), former);
    workspace_.focus(other);
    clock_.advance(1s);
    EXPECT_EQ(fetch(other), QStringLiteral("For the other."));

    deliverTo(editor, "For the editor.");
    deliverTo(other, "For a user who leaves.");
    workspace_.focus(launcher);
    EXPECT_EQ(fetch(editor), QStringLiteral("For the editor."));
    workspace_.focus(third);
    clock_.advance(1s);
    EXPECT_EQ(clipboard(), QStringLiteral("For a user who leaves."));
}

TEST_F(HeldTextTest, AProgramThatGoesOnWithoutTheTextGetsTheNextOne)
{
    workspace_.setAnswering(true);
    deliverTo(editor, "For a button.");
    deliverTo(other, "For a field.");
    EXPECT_EQ(keys_.posted().size(), 1U) << "it may take a moment";
    clock_.advance(3s);
    EXPECT_EQ(keys_.posted().size(), 2U);
    EXPECT_EQ(fetch(other), QStringLiteral("For a field."));
    EXPECT_EQ(clipboard(), former);
}

TEST_F(HeldTextTest, AnotherProgramIsNotHeldBack)
{
    deliverTo(editor, "For the editor.");
    clock_.advance(3s);
    deliverTo(third, "At once.");
    EXPECT_EQ(keys_.posted().size(), 2U);
    deliverTo(other, "For the other.");
    EXPECT_EQ(keys_.posted().size(), 2U) << "its program is owed a text still";
    EXPECT_EQ(fetch(editor), QStringLiteral("For the editor."));
    EXPECT_EQ(fetch(other), QStringLiteral("For the other."));
}

TEST_F(HeldTextTest, AWindowThatAnswersAfterOthersHaveIsNotTakenForBusy)
{
    deliverTo(editor, "For a button.");
    clock_.advance(3s);
    deliverTo(third, "At once.");
    EXPECT_EQ(fetch(third), QStringLiteral("At once."));
    workspace_.setAnswering(true);
    deliverTo(editor, "For a field.");
    EXPECT_EQ(keys_.posted().size(), 3U);
    EXPECT_EQ(clipboard(), QStringLiteral("For a field."));
}

TEST_F(HeldTextTest, WhatCannotFollowIsNotForgotten)
{
    deliverTo(editor, "For the editor.");
    workspace_.focus(other);
    delivery_->rememberTarget();
    deliverUnstored("For the other.");
    clock_.advance(3s);
    pasteboard_.setByOther(Selection::Clipboard, QStringLiteral("copied since"));
    clock_.advance(1s);
    EXPECT_EQ(keys_.posted().size(), 1U) << "the editor would take it";
    EXPECT_EQ(clipboard(), QStringLiteral("copied since"));
    EXPECT_THAT(lost_, ElementsAre(QStringLiteral("For the other.")));
    EXPECT_TRUE(isToldOf("vantro retry"));

    deliverTo(editor, "Again.");
    workspace_.focus(other);
    delivery_->rememberTarget();
    deliverUnstored("At the end.");
    delivery_->restoreNow();
    EXPECT_EQ(lost_.size(), 1) << "its recording stays for the next start";
    EXPECT_EQ(settled_, QStringList{QStringLiteral("For the editor.")});
}

TEST_F(HeldTextTest, WhatAClosedProgramHasNotTakenIsAllOnTheClipboard)
{
    deliverUnstored("For the editor.");
    clock_.advance(3s);
    workspace_.focus(other);
    delivery_->rememberTarget();
    deliverUnstored("For the other.");
    workspace_.focus(third);
    workspace_.closeWindow(other);
    workspace_.closeWindow(editor);
    clock_.advance(1s);
    EXPECT_EQ(clipboard(), QStringLiteral("For the editor.\n\nFor the other."));
    EXPECT_THAT(lost_, IsEmpty());
}

TEST_F(HeldTextTest, AnotherProgramsKeystrokeDoesNotTakeATextWhoseUserHasLeft)
{
    deliverTo(third, "For the third.");
    clock_.advance(3s);
    deliverTo(editor, "For the editor.");
    clock_.advance(3s);
    deliverTo(other, "For the other.");
    workspace_.focus(third);
    EXPECT_EQ(fetch(editor), QStringLiteral("For the editor."));
    clock_.advance(5s);
    EXPECT_EQ(fetch(third), QStringLiteral("For the third."));
    EXPECT_EQ(clipboard(), QStringLiteral("For the other."));
}

TEST_F(HeldTextTest, ATextOwedToAWindowThatIsClosedIsToldAndItsRecordingKept)
{
    deliverUnstored("For the editor.");
    clock_.advance(3s);
    deliverTo(third, "At once.");
    workspace_.closeWindow(editor);
    EXPECT_EQ(fetch(third), QStringLiteral("At once."));
    EXPECT_THAT(lost_, ElementsAre(QStringLiteral("For the editor.")));
    EXPECT_TRUE(isToldOf("vantro retry"));
}

TEST_F(HeldTextTest, APasteDoesNotReplaceATextThatOnlyTheClipboardHas)
{
    for (const bool staysThere : {false, true}) {
        defaults_.set(setting::copyToClipboardEnabled, staysThere);
        session_.setAway(true);
        deliverUnstored("Waits.");
        session_.setAway(false);
        targetReads_ = true;
        deliverUnstored("Pasted.");
        clock_.advance(100ms);
        deliverUnstored("Soon after.");
        EXPECT_EQ(received_, QStringLiteral("Soon after."));
        clock_.advance(1s);
        EXPECT_EQ(clipboard(), QStringLiteral("Waits.")) << staysThere;
        session_.setAway(true);
        deliverUnstored("And waits.");
        EXPECT_EQ(clipboard(), QStringLiteral("Waits.\n\nAnd waits.")) << staysThere;
        session_.setAway(false);
        deliverUnstored("Pasted.");
        session_.setAway(true);
        deliverUnstored("Before it is back.");
        EXPECT_EQ(clipboard(), QStringLiteral("Waits.\n\nAnd waits.\n\nBefore it is back.")) << staysThere;
        session_.setAway(false);
        pasteboard_.setByOther(Selection::Clipboard, former);
    }
}
