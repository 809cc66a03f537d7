#include "tests/delivery/PasteDeliveryFixture.h"

using namespace std::chrono_literals;
using namespace vantro;
using namespace vantro::doubles;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class PasteDeliveryKeyboardTest : public PasteDeliveryFixture
{
};

} // namespace

TEST_F(PasteDeliveryKeyboardTest, AnOwnWindowIsATargetOnlyWithATextField)
{
    constexpr WindowID alert = 4;
    constexpr WindowID settings = 5;
    for (const WindowID own : {alert, settings}) {
        workspace_.openWindow(own);
        workspace_.makeOwn(own, own == settings);
    }
    workspace_.focus(alert);
    delivery_->rememberTarget();
    deliver();
    clock_.advance(120ms);
    EXPECT_EQ(outcome_, Outcome::Pasted);
    EXPECT_EQ(workspace_.frontWindow(), editor);

    workspace_.focus(settings);
    delivery_->rememberTarget();
    deliver();
    EXPECT_EQ(outcome_, Outcome::Pasted);
    EXPECT_EQ(workspace_.frontWindow(), settings);

    constexpr WindowID practice = 6;
    workspace_.openWindow(practice);
    workspace_.makeOwn(practice);
    workspace_.focus(practice);
    delivery_->rememberTarget();
    workspace_.makeOwn(practice, true); // its page is there a moment later
    deliver();
    EXPECT_EQ(outcome_, Outcome::Pasted);
    EXPECT_EQ(workspace_.frontWindow(), practice);
}

TEST_F(PasteDeliveryKeyboardTest, AUserWhoHasMovedOnKeepsTheKeyboard)
{
    workspace_.openWindow(editor, {QStringLiteral("XTerm"), QStringLiteral("xterm")});
    workspace_.focus(other);
    deliver();
    clock_.advance(120ms);
    EXPECT_EQ(outcome_, Outcome::MovedOn);
    EXPECT_THAT(workspace_.activations(), IsEmpty());
    EXPECT_THAT(keys_.posted(), IsEmpty());
    clock_.advance(5s);
    EXPECT_EQ(delivery_->pasteKeys(), QStringLiteral("Ctrl+V")) << "where the user is";
    workspace_.focus(editor);
    EXPECT_EQ(delivery_->pasteKeys(), QStringLiteral("Shift+Insert"));
    workspace_.focus(launcher);
    EXPECT_EQ(delivery_->pasteKeys(), QStringLiteral("Shift+Insert")) << "no window of ours";
    for (const auto selection : {Selection::Clipboard, Selection::Primary}) {
        EXPECT_EQ(pasteboard_.string(selection), words) << "those keys must find it";
        EXPECT_FALSE(pasteboard_.isSecret(selection));
    }
}

TEST_F(PasteDeliveryKeyboardTest, WaitsUntilTheWindowItselfHasTheKeyboard)
{
    workspace_.focus(launcher);
    deliver();
    EXPECT_FALSE(outcome_);
    workspace_.setFrontWindow(editor);
    clock_.advance(10ms);
    EXPECT_THAT(keys_.posted(), IsEmpty()) << "the window manager's word runs ahead of the keyboard";
    workspace_.setInputFocus(editor);
    clock_.advance(2ms);
    EXPECT_EQ(outcome_, Outcome::Pasted);
    EXPECT_THAT(workspace_.activations(), IsEmpty());
}

TEST_F(PasteDeliveryKeyboardTest, AsksOnceForTheKeyboardWhenItDoesNotComeBackByItself)
{
    workspace_.focus(launcher);
    deliver();
    clock_.advance(120ms);
    EXPECT_EQ(outcome_, Outcome::Pasted);
    EXPECT_THAT(workspace_.activations(), ElementsAre(editor));
}

TEST_F(PasteDeliveryKeyboardTest, NothingIsPastedElsewhereAndTheTextStaysOnTheClipboard)
{
    // A window of our own keeps the keyboard.
    workspace_.setActivationPolicy([](WindowID) {});
    workspace_.focus(launcher);
    deliver();
    clock_.advance(600ms);
    EXPECT_EQ(outcome_, Outcome::FocusNotReturned);
    EXPECT_EQ(workspace_.activations().size(), 1U);

    // The window is closed while its turn is awaited.
    deliver();
    workspace_.closeWindow(editor);
    clock_.advance(2ms);
    EXPECT_EQ(outcome_, Outcome::TargetGone);

    // There was no window to begin with.
    workspace_.setFrontWindow(std::nullopt);
    delivery_->rememberTarget();
    deliver();
    EXPECT_EQ(outcome_, Outcome::NoTarget);

    clock_.advance(10s);
    EXPECT_THAT(keys_.posted(), IsEmpty());
    EXPECT_EQ(clipboard(), words);
    EXPECT_FALSE(pasteboard_.isSecret(Selection::Clipboard));
    EXPECT_EQ(delivery_->pasteKeys(), QStringLiteral("Ctrl+V"));
}

TEST_F(PasteDeliveryKeyboardTest, ARefusedKeystrokeLeavesTheTextAndItsReason)
{
    keys_.refuse(QStringLiteral("No keyboard."));
    deliver();
    EXPECT_EQ(outcome_, Outcome::KeystrokeFailed);
    clock_.advance(10s);
    EXPECT_EQ(clipboard(), words);
    EXPECT_TRUE(delivery_->explanation(Outcome::KeystrokeFailed).startsWith(QStringLiteral("No keyboard. ")));
}

TEST_F(PasteDeliveryKeyboardTest, WaitsForAHeldKeyThenLooksAtTheFocusAgain)
{
    keys_.setOrdinaryKeyDown(true);
    deliver();
    clock_.advance(100ms);
    EXPECT_THAT(keys_.posted(), IsEmpty());
    workspace_.setActivationPolicy([](WindowID) {});
    workspace_.focus(other);
    keys_.setOrdinaryKeyDown(false);
    clock_.advance(700ms);
    EXPECT_EQ(outcome_, Outcome::MovedOn);

    // A jammed key does not stand in the way for ever.
    workspace_.focus(editor);
    keys_.setOrdinaryKeyDown(true);
    deliver();
    clock_.advance(1100ms);
    EXPECT_EQ(outcome_, Outcome::Pasted);
}

TEST_F(PasteDeliveryKeyboardTest, WhatIsCopiedWhileAKeyIsHeldIsNotPastedAndComesBack)
{
    keys_.setOrdinaryKeyDown(true);
    deliver();
    pasteboard_.setByOther(Selection::Clipboard, QStringLiteral("copied since"));
    keys_.setOrdinaryKeyDown(false);
    clock_.advance(10ms);
    EXPECT_EQ(received_, words);
    clock_.advance(1s);
    EXPECT_EQ(clipboard(), QStringLiteral("copied since"));

    // Two texts at the same time: neither is taken for what was there before.
    keys_.setOrdinaryKeyDown(true);
    deliver(QStringLiteral("One."));
    deliver(QStringLiteral("Two."));
    clock_.advance(100ms);
    keys_.setOrdinaryKeyDown(false);
    clock_.advance(100ms);
    EXPECT_EQ(keys_.posted().size(), 3U);
    EXPECT_EQ(received_, QStringLiteral("Two."));
    clock_.advance(1s);
    EXPECT_EQ(clipboard(), QStringLiteral("copied since"));
}

TEST_F(PasteDeliveryKeyboardTest, WhoeverHasTheKeyboardToItselfGetsNoKeystroke)
{
    keys_.setKeyboardTaken(true);
    deliver();
    clock_.advance(500ms);
    keys_.setKeyboardTaken(false); // a menu that was open for a moment
    clock_.advance(2ms);
    EXPECT_EQ(outcome_, Outcome::Pasted);
    clock_.advance(300ms);

    keys_.setKeyboardTaken(true);
    deliver();
    clock_.advance(1100ms);
    EXPECT_EQ(outcome_, Outcome::KeyboardTaken);
    EXPECT_EQ(clipboard(), words);
    EXPECT_EQ(keys_.posted().size(), 1U);
}

TEST_F(PasteDeliveryKeyboardTest, WhoIsAwayGetsTheTextOnTheClipboardAtWhateverPointTheyLeave)
{
    session_.setAway(true);
    deliver();
    EXPECT_EQ(outcome_, Outcome::UserAway) << "nothing to wait for";
    EXPECT_EQ(clipboard(), words);

    session_.setAway(false);
    workspace_.focus(launcher);
    deliver();
    session_.setAway(true); // while the focus is waited for
    workspace_.focus(editor);
    clock_.advance(2ms);
    EXPECT_EQ(outcome_, Outcome::UserAway);

    session_.setAway(false);
    keys_.setOrdinaryKeyDown(true);
    deliver();
    session_.setAway(true); // with the keys that lock the screen
    clock_.advance(2ms);
    EXPECT_EQ(outcome_, Outcome::UserAway);
    EXPECT_THAT(keys_.posted(), IsEmpty());
}

TEST_F(PasteDeliveryKeyboardTest, NothingIsTouchedAfterTheDeliveryIsGone)
{
    workspace_.focus(launcher);
    deliver();
    delivery_.reset();
    workspace_.focus(editor);
    clock_.advance(5s);
    EXPECT_THAT(keys_.posted(), IsEmpty());
}
