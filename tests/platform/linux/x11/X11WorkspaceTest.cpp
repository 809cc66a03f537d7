#include "platform/KeyCode.h"
#include "platform/linux/x11/X11HotKeyManager.h"
#include "platform/linux/x11/X11KeyEventPoster.h"
#include "platform/linux/x11/X11Pasteboard.h"
#include "platform/linux/x11/X11Permissions.h"
#include "tests/desktop/X11Session.h"

#include <QGuiApplication>
#include <QWindow>

#include <X11/Xlib.h>

#include <chrono>
#include <cstdlib>
#include <thread>
#include <vector>

using namespace vantro;
using namespace vantro::desktop;
using ::testing::ElementsAre;

namespace {

constexpr std::uint32_t keyD = 2;
constexpr std::uint32_t ctrlAlt = Modifier::command | Modifier::option;

using X11WorkspaceTest = X11Session;

} // namespace

TEST_F(X11WorkspaceTest, KnowsWhichWindowHasTheKeyboardAndBringsAnotherToTheFront)
{
    EXPECT_TRUE(eventually([&] { return workspace_->frontWindow() == std::nullopt; }))
        << "the manager's own window is no program's";
    int changes = 0;
    QObject::connect(&*workspace_, &Workspace::frontWindowChanged, &*workspace_, [&] { ++changes; });
    const auto terminal = TargetProgram::xterm(*workspace_);
    const auto editor = TargetProgram::qtEditor(*workspace_);
    EXPECT_THAT(workspace_->windowClass(terminal->window()),
                ElementsAre(QStringLiteral("XTerm"), QStringLiteral("xterm")));
    EXPECT_TRUE(workspace_->hasInputFocus(editor->window()));
    EXPECT_FALSE(workspace_->hasInputFocus(terminal->window()));

    changes = 0;
    workspace_->activateWindow(terminal->window());
    EXPECT_TRUE(eventually([&] {
        return changes > 0 && workspace_->frontWindow() == terminal->window() &&
               workspace_->hasInputFocus(terminal->window());
    }));

    terminal->close();
    EXPECT_TRUE(eventually([&] { return !workspace_->windowExists(terminal->window()); }));
    EXPECT_TRUE(eventually([&] { return workspace_->hasInputFocus(editor->window()); }));
    EXPECT_TRUE(workspace_->windowClass(terminal->window()).isEmpty());
    EXPECT_FALSE(workspace_->hasInputFocus(terminal->window()));
    workspace_->activateWindow(terminal->window());
}

TEST_F(X11WorkspaceTest, AWindowWithTheNumberOfAClosedOneIsAnother)
{
    constexpr int attempts = 5;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        auto terminal = TargetProgram::xterm(*workspace_);
        const WindowID closed = terminal->window();
        terminal->close();
        terminal = TargetProgram::xterm(*workspace_);
        if (X11Workspace::numberOf(terminal->window()) != X11Workspace::numberOf(closed))
            continue;
        EXPECT_NE(terminal->window(), closed);
        EXPECT_FALSE(workspace_->windowExists(closed));
        EXPECT_FALSE(workspace_->hasInputFocus(closed));
        EXPECT_TRUE(workspace_->windowClass(closed).isEmpty());
        EXPECT_TRUE(workspace_->hasInputFocus(terminal->window()));
        EXPECT_FALSE(workspace_->windowClass(terminal->window()).isEmpty());
        return;
    }
    FAIL() << "the server gives each program numbers of its own";
}

TEST_F(X11WorkspaceTest, OwnWindowsCountAndHandTheKeyboardBackWhenTheyClose)
{
    const auto editor = TargetProgram::qtEditor(*workspace_);
    QWindow launcher;
    launcher.setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    launcher.show();
    launcher.requestActivate();
    EXPECT_TRUE(eventually([&] { return workspace_->hasInputFocus(launcher.winId()); }));
    EXPECT_FALSE(workspace_->hasInputFocus(editor->window()));
    launcher.close();
    EXPECT_TRUE(eventually(
        [&] { return workspace_->hasInputFocus(editor->window()) && workspace_->frontWindow() == editor->window(); }));
}

TEST_F(X11WorkspaceTest, TellsAWindowThatGoesOnFromOneThatStandsStill)
{
    const auto editor = TargetProgram::qtEditor(*workspace_);
    const WindowID window = editor->window();
    EXPECT_FALSE(workspace_->hasAnswered(window)) << "nobody has asked";
    editor->freeze();
    workspace_->ping(window);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    QCoreApplication::processEvents();
    EXPECT_FALSE(workspace_->hasAnswered(window));
    editor->thaw();
    EXPECT_TRUE(eventually([&] { return workspace_->hasAnswered(window); }));
    workspace_->ping(window);
    EXPECT_TRUE(eventually([&] { return workspace_->hasAnswered(window); }));

    const auto document = TargetProgram::mousepad(*workspace_, *user_);
    workspace_->ping(document->window());
    EXPECT_TRUE(eventually([&] { return workspace_->hasAnswered(document->window()); }));
    EXPECT_TRUE(workspace_->hasAnswered(window)) << "each for itself";
    editor->freeze();
    workspace_->ping(window);
    EXPECT_FALSE(workspace_->hasAnswered(window)) << "the latest counts";
    EXPECT_TRUE(workspace_->hasAnswered(document->window()));
    editor->thaw();
    EXPECT_TRUE(eventually([&] { return workspace_->hasAnswered(window); }));
    document->close();
    workspace_->ping(document->window());
    EXPECT_FALSE(workspace_->hasAnswered(document->window()));
}

TEST_F(X11WorkspaceTest, ALostConnectionLetsGoOfHeldKeysAndEveryCallFailsClearly)
{
    X11HotKeyManager hotKeys(*connection_);
    X11KeyEventPoster poster(*connection_);
    std::vector<std::string> seen;
    QObject::connect(&hotKeys, &HotKeyManager::hotKeyPressed, &hotKeys, [&] { seen.emplace_back("pressed"); });
    QObject::connect(&hotKeys, &HotKeyManager::hotKeyReleased, &hotKeys, [&] { seen.emplace_back("released"); });
    QObject::connect(&hotKeys, &HotKeyManager::hotKeyLost, &hotKeys, [&] { seen.emplace_back("lost"); });
    hotKeys.registerHotKey(1, keyD, ctrlAlt);
    const std::vector<unsigned> ctrlAltD{Place::leftControl, Place::leftAlt, Place::d};
    for (const unsigned place : ctrlAltD)
        user_->press(place);
    ASSERT_TRUE(eventually([&] { return !seen.empty(); }));

    // Any window of the connection names its client.
    const Window window = XCreateSimpleWindow(connection_->display(), connection_->rootWindow(), 0, 0, 1, 1, 0, 0, 0);
    XSync(connection_->display(), False);
    user_->killClient(window);
    EXPECT_TRUE(eventually([&] { return seen.size() == 3; }));
    EXPECT_THAT(seen, ElementsAre("pressed", "released", "lost"));
    for (const unsigned place : ctrlAltD)
        user_->release(place);

    EXPECT_FALSE(connection_->isOpen());
    EXPECT_THROW(hotKeys.registerHotKey(2, keyD, ctrlAlt), HotKeyError);
    EXPECT_THROW(poster.postPaste(KeyEventPoster::PasteChord::ControlV), KeyEventError);
    EXPECT_FALSE(poster.isOrdinaryKeyDown());
    EXPECT_EQ(workspace_->frontWindow(), std::nullopt);
    EXPECT_FALSE(workspace_->windowExists(window));
    hotKeys.unregisterHotKey(1);
}

TEST_F(X11WorkspaceTest, AConnectionThatIsCutDuringACallFailsThatCall)
{
    const Window window = XCreateSimpleWindow(connection_->display(), connection_->rootWindow(), 0, 0, 1, 1, 0, 0, 0);
    XSync(connection_->display(), False);
    user_->killClient(window);
    EXPECT_EQ(workspace_->frontWindow(), std::nullopt);
    EXPECT_FALSE(connection_->isOpen());
}

TEST_F(X11WorkspaceTest, WithoutAWindowManagerTheInputFocusDecides)
{
    const char* const manager = std::getenv("VANTRO_WINDOW_MANAGER");
    if (manager == nullptr || *manager != '\0')
        GTEST_SKIP() << "a window manager runs; the session without one is a run of its own";
    // The focus follows the pointer.
    user_->movePointer(100, 100);
    const auto terminal = TargetProgram::xterm(*workspace_);
    X11Pasteboard pasteboard;
    pasteboard.setString(Pasteboard::Selection::Primary, QStringLiteral("text"));
    X11KeyEventPoster(*connection_).postPaste(KeyEventPoster::PasteChord::ShiftInsert);
    EXPECT_TRUE(eventually([&] { return terminal->text() == QStringLiteral("text"); }));

    user_->movePointer(1200, 700);
    EXPECT_FALSE(workspace_->hasInputFocus(terminal->window()));
    workspace_->activateWindow(terminal->window());
    EXPECT_TRUE(workspace_->hasInputFocus(terminal->window()));
    EXPECT_EQ(workspace_->frontWindow(), terminal->window());
}

TEST(X11WithoutServer, EverythingExistsAndFailsWithASentence)
{
    X11Connection connection(QStringLiteral(":9977"));
    EXPECT_FALSE(connection.isOpen());
    X11HotKeyManager hotKeys(connection);
    try {
        hotKeys.registerHotKey(1, keyD, ctrlAlt);
        FAIL();
    } catch (const HotKeyError& error) {
        EXPECT_TRUE(error.localizedDescription().contains(QStringLiteral("X server")));
    }
    X11KeyEventPoster poster(connection);
    EXPECT_THROW(poster.postPaste(KeyEventPoster::PasteChord::ControlV), KeyEventError);
    X11Workspace workspace(connection);
    EXPECT_EQ(workspace.frontWindow(), std::nullopt);
    workspace.activateWindow(1);
    EXPECT_FALSE(X11Permissions(connection, [] { return true; }).trustedForAccessibility());
    X11Pasteboard pasteboard(QStringLiteral(":9977"));
    pasteboard.setString(Pasteboard::Selection::Clipboard, QStringLiteral("text"));
    EXPECT_EQ(pasteboard.string(Pasteboard::Selection::Clipboard), std::nullopt);
}
