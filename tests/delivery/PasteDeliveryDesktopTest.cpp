// Delivery with everything real: an X server with a window manager, other programs' windows, the clipboard.
#include "base/Clock.h"
#include "platform/KeyCode.h"
#include "platform/linux/x11/X11HotKeyManager.h"
#include "platform/linux/x11/X11KeyEventPoster.h"
#include "platform/linux/x11/X11Pasteboard.h"
#include "platform/testing/FakeSessionState.h"
#include "tests/desktop/X11Session.h"
#include "vantro/delivery/PasteDelivery.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QWindow>

#include <memory>

using namespace vantro;
using namespace vantro::desktop;

namespace {

using Outcome = PasteDelivery::Outcome;
using Selection = Pasteboard::Selection;

const QString former = QStringLiteral("former");
const QString words = QStringLiteral("Grüße, spoken words.");

class PasteDeliveryDesktopTest : public X11Session
{
protected:
    void SetUp() override
    {
        X11Session::SetUp();
        if (IsSkipped())
            return;
        poster_.emplace(*connection_);
        pasteboard_.emplace();
        delivery_.emplace(*pasteboard_, *poster_, *workspace_, session_, defaults_, clock_);
        // The user's clipboard belongs to a program of its own.
        otherPasteboard_.emplace();
        otherPasteboard_->setString(Selection::Clipboard, former);
    }

    /// The window that takes the keyboard while a dictation lasts.
    void openLauncher()
    {
        delivery_->rememberTarget();
        launcher_ = std::make_unique<QWindow>();
        launcher_->setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        launcher_->show();
        ASSERT_TRUE(eventually([&] { return workspace_->windowExists(launcher_->winId()); }));
        workspace_->activateWindow(launcher_->winId());
        ASSERT_TRUE(eventually([&] {
            return workspace_->hasInputFocus(launcher_->winId()) && workspace_->frontWindow() == launcher_->winId();
        }));
    }

    void deliver()
    {
        outcome_.reset();
        [](PasteDeliveryDesktopTest& self) -> QCoro::Task<> {
            self.outcome_ = co_await self.delivery_->deliver(words);
        }(*this);
    }

    /// Delivers as the program does: the launcher closes, then the text goes on its way.
    std::optional<Outcome> closeLauncherAndDeliver()
    {
        launcher_.reset();
        deliver();
        EXPECT_TRUE(eventually([&] { return outcome_.has_value(); }));
        return outcome_;
    }

    /// As a program that has nothing to do with this one sees it.
    static QString clipboardElsewhere()
    {
        QProcess reader;
        reader.start(QStringLiteral("xclip"),
                     {QStringLiteral("-out"), QStringLiteral("-selection"), QStringLiteral("clipboard")});
        EXPECT_TRUE(reader.waitForFinished());
        return QString::fromUtf8(reader.readAllStandardOutput());
    }

    QTemporaryDir folder_;
    UserDefaults defaults_{folder_.filePath(QStringLiteral("vantro.ini"))};
    SystemClock clock_;
    std::optional<X11KeyEventPoster> poster_;
    std::optional<X11Pasteboard> pasteboard_;
    std::optional<X11Pasteboard> otherPasteboard_;
    doubles::FakeSessionState session_;
    std::optional<PasteDelivery> delivery_;
    std::unique_ptr<QWindow> launcher_;
    std::optional<Outcome> outcome_;
};

} // namespace

TEST_F(PasteDeliveryDesktopTest, ABusyTargetGetsTheWordsAlthoughAClipboardManagerWasFaster)
{
    const auto editor = TargetProgram::qtEditor(*workspace_);
    openLauncher();
    editor->freeze();
    EXPECT_EQ(closeLauncherAndDeliver(), Outcome::Pasted);
    EXPECT_EQ(clipboardElsewhere(), words);
    QElapsedTimer busy;
    busy.start();
    EXPECT_TRUE(eventually([&] { return busy.elapsed() > 400; }));
    editor->thaw();
    EXPECT_TRUE(eventually([&] { return editor->text() == words; }));
    EXPECT_TRUE(eventually([] { return clipboardElsewhere() == former; }));
}

TEST_F(PasteDeliveryDesktopTest, ATargetThatIsBusyTooLongPastesTheWordsAndNotTheFormerText)
{
    QString told;
    QObject::connect(&*delivery_, &PasteDelivery::notFetched, &*delivery_, [&](const QString& why) { told = why; });
    const auto editor = TargetProgram::qtEditor(*workspace_);
    openLauncher();
    editor->freeze();
    EXPECT_EQ(closeLauncherAndDeliver(), Outcome::Pasted);
    EXPECT_TRUE(eventually([&] { return !told.isEmpty(); }));
    EXPECT_EQ(clipboardElsewhere(), words);
    editor->thaw();
    EXPECT_TRUE(eventually([&] { return editor->text() == words; }));
    EXPECT_TRUE(eventually([] { return clipboardElsewhere() == former; }));
}

TEST_F(PasteDeliveryDesktopTest, WhoTypesElsewhereByNowKeepsTheKeyboard)
{
    const auto editor = TargetProgram::qtEditor(*workspace_);
    openLauncher();
    const auto elsewhere = TargetProgram::qtEditor(*workspace_);
    EXPECT_EQ(closeLauncherAndDeliver(), Outcome::MovedOn);
    EXPECT_TRUE(workspace_->hasInputFocus(elsewhere->window()));
    EXPECT_EQ(clipboardElsewhere(), words);
    EXPECT_EQ(editor->text() + elsewhere->text(), QString());
}

TEST_F(PasteDeliveryDesktopTest, AHotKeyThatIsHeldDelaysThePasteInsteadOfSwallowingIt)
{
    constexpr std::uint32_t keyD = 2;
    const auto editor = TargetProgram::qtEditor(*workspace_);
    X11HotKeyManager hotKeys(*connection_);
    hotKeys.registerHotKey(1, keyD, Modifier::command | Modifier::option);
    int released = 0;
    QObject::connect(&hotKeys, &HotKeyManager::hotKeyReleased, &hotKeys, [&] { ++released; });

    delivery_->rememberTarget();
    const std::vector<unsigned> shortcut{Place::leftControl, Place::leftAlt, Place::d};
    for (const unsigned place : shortcut)
        user_->press(place);
    deliver();
    EXPECT_FALSE(outcome_);
    user_->release(Place::d);
    EXPECT_TRUE(eventually([&] { return editor->text() == words; })) << "Ctrl and Alt are still held";
    EXPECT_EQ(outcome_, Outcome::Pasted);
    EXPECT_EQ(released, 1);
    user_->release(Place::leftAlt);
    user_->release(Place::leftControl);
}
