#include "base/Settings.h"
#include "tests/delivery/PasteDeliveryFixture.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>

using namespace std::chrono_literals;
using namespace vantro;
using namespace vantro::doubles;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class PasteDeliveryTest : public PasteDeliveryFixture
{
};

} // namespace

TEST_F(PasteDeliveryTest, PastesAtOnceAndPutsTheFormerTextBackAfterThreeTenthsOfASecond)
{
    deliver(QStringLiteral("\n  spoken words \t"));
    EXPECT_EQ(outcome_, Outcome::Pasted) << "no time may pass when the keyboard is there already";
    EXPECT_EQ(received_, words);
    clock_.advance(299ms);
    EXPECT_EQ(clipboard(), words);
    clock_.advance(1ms);
    EXPECT_EQ(clipboard(), former);
}

TEST_F(PasteDeliveryTest, ConsecutiveDictationsIntoOneWindowAreJoinedWhenTheUserWantsIt)
{
    const auto next = [this](const char* text) {
        clock_.advance(5s);
        delivery_->rememberTarget();
        deliver(QString::fromUtf8(text));
        return received_.value_or(QString()).toStdString();
    };
    EXPECT_EQ(next("One."), "One.");
    EXPECT_EQ(next("Two."), "Two.") << "not unless it is wanted";
    defaults_.set(setting::joinDictations, true);
    EXPECT_EQ(next("Three,"), " Three,");
    EXPECT_EQ(next("And four"), " and four");
    EXPECT_EQ(next("I am five."), " I am five.");
    EXPECT_EQ(next("Six"), " Six");
    defaults_.set(setting::selectedLanguage, QStringLiteral("de"));
    EXPECT_EQ(next("Häuser"), " Häuser") << "a noun";
    EXPECT_EQ(next("\xE4\xBD\xA0\xE5\xA5\xBD"), " \xE4\xBD\xA0\xE5\xA5\xBD");
    EXPECT_EQ(next("\xE4\xBD\xA0\xE5\xA5\xBD"), "\xE4\xBD\xA0\xE5\xA5\xBD") << "a script without spaces";
    workspace_.focus(other);
    workspace_.focus(editor);
    EXPECT_EQ(next("Seven."), "Seven.") << "the user has been elsewhere";
    clock_.advance(60s);
    EXPECT_EQ(next("Eight."), "Eight.") << "much later";
}

TEST_F(PasteDeliveryTest, AClipboardWithoutTextIsLeftWithoutOwner)
{
    pasteboard_.setByOther(Selection::Clipboard, std::nullopt);
    deliver();
    clock_.advance(300ms);
    EXPECT_EQ(clipboard(), std::nullopt);
}

TEST_F(PasteDeliveryTest, BlankTextTouchesNothing)
{
    deliver(QStringLiteral(" \n\t "));
    EXPECT_EQ(outcome_, Outcome::Nothing);
    EXPECT_FALSE(delivery_->copy(QString()));
    EXPECT_EQ(pasteboard_.changes(Selection::Clipboard), 0);
    EXPECT_THAT(keys_.posted(), IsEmpty());
}

// What is deleted from the history must not be left in a journal.
TEST_F(PasteDeliveryTest, TheTextIsPrintedForAPersonAtATerminalOnly)
{
    ::testing::internal::CaptureStdout();
    ASSERT_TRUE(delivery_->copy(words));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), std::string());

    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_TRUE(terminal >= 0 && ::grantpt(terminal) == 0 && ::unlockpt(terminal) == 0);
    const int former = ::dup(STDOUT_FILENO);
    const int screen = ::open(::ptsname(terminal), O_RDWR | O_NOCTTY);
    ::dup2(screen, STDOUT_FILENO);
    ASSERT_TRUE(delivery_->copy(words));
    ::dup2(former, STDOUT_FILENO);
    std::array<char, 100> shown{};
    EXPECT_GT(::read(terminal, shown.data(), shown.size() - 1), 0);
    EXPECT_EQ(std::string(shown.data()), "Copied to clipboard: \"spoken words\"\r\n");
    for (const int descriptor : {terminal, former, screen})
        ::close(descriptor);
}

TEST_F(PasteDeliveryTest, TheTextStaysOnTheClipboardWhenTheUserWantsIt)
{
    defaults_.set(setting::copyToClipboardEnabled, true);
    deliver();
    clock_.advance(10s);
    EXPECT_EQ(received_, words);
    EXPECT_EQ(clipboard(), words);
}

TEST_F(PasteDeliveryTest, ClipboardHistoriesAreAskedToLeaveOutWhatIsThereForAMoment)
{
    pasteboard_.setByOther(Selection::Clipboard, former, true);
    deliver();
    EXPECT_TRUE(pasteboard_.isSecret(Selection::Clipboard));
    clock_.advance(300ms);
    EXPECT_EQ(clipboard(), former);
    EXPECT_TRUE(pasteboard_.isSecret(Selection::Clipboard)) << "it was a password before";

    defaults_.set(setting::copyToClipboardEnabled, true);
    deliver();
    EXPECT_FALSE(pasteboard_.isSecret(Selection::Clipboard)) << "it is meant to stay";
}

TEST_F(PasteDeliveryTest, NothingThatATerminalWouldObeyIsPasted)
{
    deliver(QString(QChar(0)) + QStringLiteral("\x1b[31mone\r\ntwo\x07\tthree\u009b\x7f"));
    EXPECT_EQ(received_, QStringLiteral("[31mone\ntwo\tthree"));
    deliver(QStringLiteral("\x1b"));
    EXPECT_EQ(outcome_, Outcome::Nothing);
}

TEST_F(PasteDeliveryTest, WhatTheUserCopiesMeanwhileIsKept)
{
    deliver();
    pasteboard_.setByOther(Selection::Clipboard, QStringLiteral("copied since"));
    clock_.advance(5s);
    EXPECT_EQ(clipboard(), QStringLiteral("copied since"));
}

TEST_F(PasteDeliveryTest, WhatVantroItselfCopiesAfterAPasteDoesNotMakeItLookUnfetched)
{
    deliver();
    clock_.advance(100ms);
    pasteboard_.setString(Selection::Clipboard, QStringLiteral("from the history"));
    clock_.advance(3s);
    EXPECT_EQ(told_, QStringList());
    EXPECT_EQ(clipboard(), QStringLiteral("from the history"));

    deliver(QStringLiteral("more words"));
    EXPECT_EQ(received_, QStringLiteral("more words"));
    clock_.advance(3s);
    EXPECT_EQ(clipboard(), QStringLiteral("from the history"));
}

TEST_F(PasteDeliveryTest, TwoDeliveriesInARowRestoreWhatWasThereBeforeTheFirst)
{
    deliver(QStringLiteral("one"));
    clock_.advance(200ms);
    deliver(QStringLiteral("two"));
    EXPECT_EQ(received_, QStringLiteral("two"));
    clock_.advance(200ms);
    EXPECT_EQ(clipboard(), QStringLiteral("two")) << "the first restore must not take the second text away";
    clock_.advance(100ms);
    EXPECT_EQ(clipboard(), former);
}

TEST_F(PasteDeliveryTest, XtermPastesThePrimarySelectionWhichIsPutBackToo)
{
    workspace_.openWindow(editor, {QStringLiteral("XTerm"), QStringLiteral("xterm")});
    pasteboard_.setByOther(Selection::Primary, QStringLiteral("highlighted"));
    deliver();
    EXPECT_THAT(keys_.posted(), ElementsAre(Chord::ShiftInsert));
    EXPECT_EQ(received_, words);
    clock_.advance(300ms);
    EXPECT_EQ(clipboard(), former);
    EXPECT_EQ(pasteboard_.string(Selection::Primary), QStringLiteral("highlighted"));
}
