#include "platform/linux/x11/X11Pasteboard.h"

#include "tests/desktop/X11Session.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QWindow>

#include <csignal>

using namespace vantro;
using namespace vantro::desktop;

namespace {

using Selection = Pasteboard::Selection;

class X11PasteboardTest : public X11Session
{
protected:
    void SetUp() override
    {
        X11Session::SetUp();
        if (!IsSkipped())
            pasteboard_.emplace();
    }

    void TearDown() override
    {
        X11Session::TearDown();
        if (owner_.state() != QProcess::NotRunning) {
            ::kill(static_cast<pid_t>(owner_.processId()), SIGCONT);
            owner_.kill();
            owner_.waitForFinished();
        }
    }

    /// Another program owns the clipboard.
    void copyElsewhere(const QByteArray& bytes, const QStringList& arguments = {})
    {
        QFile file(folder_.filePath(QStringLiteral("copied")));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
        file.close();
        owner_.setStandardOutputFile(QProcess::nullDevice());
        owner_.start(QStringLiteral("xclip"),
                     QStringList{QStringLiteral("-quiet"), QStringLiteral("-selection"), QStringLiteral("clipboard"),
                                 QStringLiteral("-in"), file.fileName()} +
                         arguments);
        ASSERT_TRUE(owner_.waitForStarted());
        // What this program offers, xclip does not.
        ASSERT_TRUE(eventually([] { return !targets().isEmpty() && !targets().contains("SAVE_TARGETS"); }));
    }

    static QByteArray readElsewhere(const QStringList& arguments)
    {
        QProcess reader;
        reader.start(QStringLiteral("xclip"), QStringList{QStringLiteral("-out")} + arguments);
        EXPECT_TRUE(reader.waitForFinished());
        return reader.readAllStandardOutput();
    }
    static QByteArray targets()
    {
        return readElsewhere({QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-t"),
                              QStringLiteral("TARGETS")});
    }
    static QByteArray clipboardElsewhere()
    {
        return readElsewhere({QStringLiteral("-selection"), QStringLiteral("clipboard")});
    }

    QTemporaryDir folder_;
    QProcess owner_;
    std::optional<X11Pasteboard> pasteboard_;
};

} // namespace

TEST_F(X11PasteboardTest, GivesItsTextToOtherProgramsAndKnowsThatTheyTookIt)
{
    const QString text = QStringLiteral("Grüße, 世界 👋");
    pasteboard_->setString(Selection::Clipboard, text);
    pasteboard_->setString(Selection::Primary, QStringLiteral("highlighted"));
    EXPECT_EQ(pasteboard_->string(Selection::Clipboard), text);
    EXPECT_TRUE(targets().contains("UTF8_STRING"));
    EXPECT_FALSE(pasteboard_->wasFetched(Selection::Clipboard)) << "asking what there is, is not fetching";
    EXPECT_EQ(clipboardElsewhere(), text.toUtf8());
    EXPECT_TRUE(pasteboard_->wasFetched(Selection::Clipboard));
    EXPECT_FALSE(pasteboard_->wasFetched(Selection::Primary));
    EXPECT_EQ(readElsewhere({QStringLiteral("-selection"), QStringLiteral("primary")}), "highlighted");

    pasteboard_->setString(Selection::Clipboard, QStringLiteral("new"));
    EXPECT_FALSE(pasteboard_->wasFetched(Selection::Clipboard));
    const auto editor = TargetProgram::qtEditor(*workspace_);
    std::ignore = clipboardElsewhere();
    EXPECT_FALSE(pasteboard_->wasFetchedBy(Selection::Clipboard, editor->window()));
    constexpr unsigned shiftInsert = 118;
    user_->chord({Place::leftShift, shiftInsert});
    EXPECT_TRUE(eventually([&] { return pasteboard_->wasFetchedBy(Selection::Clipboard, editor->window()); }));
    const auto second = TargetProgram::qtEditor(*workspace_);
    EXPECT_FALSE(pasteboard_->isSameProgram(editor->window(), second->window()));
    EXPECT_TRUE(pasteboard_->isSameProgram(editor->window(), editor->window() + 1)) << "the server's numbering";
    X11Pasteboard another;
    another.setString(Selection::Clipboard, QStringLiteral("copied meanwhile"));
    EXPECT_TRUE(eventually([&] { return !pasteboard_->isOwner(Selection::Clipboard); }));
    EXPECT_TRUE(pasteboard_->wasFetchedBy(Selection::Clipboard, editor->window()));
}

TEST_F(X11PasteboardTest, APasswordManagersHintIsReadAndGiven)
{
    const QStringList hint{QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-t"),
                           QStringLiteral("x-kde-passwordManagerHint")};
    X11Pasteboard passwordManager;
    passwordManager.setSecret(Selection::Clipboard, QStringLiteral("password"));
    EXPECT_EQ(readElsewhere(hint), "secret");
    EXPECT_TRUE(pasteboard_->isSecret(Selection::Clipboard));
    EXPECT_EQ(pasteboard_->string(Selection::Clipboard), QStringLiteral("password"));
    EXPECT_FALSE(pasteboard_->isOwner(Selection::Clipboard));

    pasteboard_->setString(Selection::Clipboard, QStringLiteral("no password"));
    EXPECT_TRUE(pasteboard_->isOwner(Selection::Clipboard));
    EXPECT_FALSE(pasteboard_->isSecret(Selection::Clipboard));
    EXPECT_FALSE(targets().contains("passwordManagerHint"));
}

TEST_F(X11PasteboardTest, TextsOfAnyLengthGoBothWays)
{
    QByteArray large;
    while (large.size() < 3'000'000)
        large += "Grüße " + QByteArray::number(large.size()) + '\n';
    pasteboard_->setString(Selection::Clipboard, QString::fromUtf8(large));
    EXPECT_EQ(clipboardElsewhere(), large);
    copyElsewhere(large);
    EXPECT_EQ(pasteboard_->string(Selection::Clipboard), QString::fromUtf8(large));
}

TEST_F(X11PasteboardTest, TakesTheClipboardFromAnyOwnerAndLeavesItWithoutOne)
{
    copyElsewhere("elsewhere");
    EXPECT_EQ(pasteboard_->string(Selection::Clipboard), QStringLiteral("elsewhere"));
    pasteboard_->setString(Selection::Clipboard, QStringLiteral("ours"));
    EXPECT_EQ(clipboardElsewhere(), "ours");
    EXPECT_TRUE(owner_.waitForFinished()) << "the former owner was not told";

    copyElsewhere("again");
    EXPECT_EQ(pasteboard_->string(Selection::Clipboard), QStringLiteral("again"));
    pasteboard_->clear(Selection::Clipboard);
    EXPECT_EQ(targets(), QByteArray());
    EXPECT_EQ(pasteboard_->string(Selection::Clipboard), std::nullopt);
    pasteboard_->setString(Selection::Clipboard, QString());
    EXPECT_EQ(pasteboard_->string(Selection::Clipboard), QString()) << "an empty text is not the same as none";
}

TEST_F(X11PasteboardTest, APictureIsNoText)
{
    copyElsewhere("\x89PNG", {QStringLiteral("-t"), QStringLiteral("image/png")});
    EXPECT_EQ(pasteboard_->string(Selection::Clipboard), std::nullopt);
}

TEST_F(X11PasteboardTest, AnOwnerThatHangsCostsABoundedTime)
{
    copyElsewhere("never");
    ::kill(static_cast<pid_t>(owner_.processId()), SIGSTOP);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(pasteboard_->string(Selection::Clipboard), std::nullopt);
    EXPECT_LT(timer.elapsed(), 1500);
    pasteboard_->setString(Selection::Clipboard, QStringLiteral("ours"));
    EXPECT_EQ(clipboardElsewhere(), "ours");
}

TEST_F(X11PasteboardTest, ThisProgramsOwnFieldsCanCopyAndPaste)
{
    // Qt takes the clipboard with the time of the last event of its windows.
    QWindow window;
    window.show();
    ASSERT_TRUE(eventually([&] { return workspace_->hasInputFocus(window.winId()); }));
    QClipboard* const own = QGuiApplication::clipboard();
    // More than once: until an event has come, its time is older than that of the former test's owner.
    ASSERT_TRUE(eventually([&] {
        own->setText(QStringLiteral("from a field"));
        return pasteboard_->string(Selection::Clipboard) == QStringLiteral("from a field");
    }));
    // More than once: Qt overlooks a loss within the millisecond in which it took the clipboard.
    ASSERT_TRUE(eventually([&] {
        pasteboard_->setString(Selection::Clipboard, QStringLiteral("dictated"));
        return !own->ownsClipboard();
    }));
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(own->text(), QStringLiteral("dictated"));
    EXPECT_LT(timer.elapsed(), 1000) << "the main thread waits for an answer that it would have to give";
}
