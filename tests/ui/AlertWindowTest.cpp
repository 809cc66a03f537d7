// Alerts on a real desktop: they come up while the user types somewhere else.
#include "vantro/ui/alert/AlertWindow.h"

#include "base/UserDefaults.h"
#include "base/testing/ManualClock.h"
#include "platform/testing/FakeDesktopAppearance.h"
#include "tests/desktop/X11Session.h"
#include "vantro/ui/style/UiEngine.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QQuickWindow>
#include <QTemporaryDir>

using namespace std::chrono_literals;
using namespace vantro;
using namespace vantro::desktop;

namespace {

class AlertWindowTest : public X11Session
{
protected:
    void SetUp() override
    {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        X11Session::SetUp();
        if (!IsSkipped())
            ui_.emplace(defaults_, appearance_);
    }
    void TearDown() override
    {
        for (const auto& alert : alerts_)
            delete alert.data();
        X11Session::TearDown();
    }

    QPointer<AlertWindow> alert()
    {
        const auto answered = [this](std::optional<int> button) {
            answers_ << button.value_or(-1);
        };
        alerts_ << new AlertWindow(ui_->engine(), clock_,
                                   {.title = QStringLiteral("Title"),
                                    .text = QStringLiteral("Text"),
                                    .buttons = {QStringLiteral("Transcribe"), QStringLiteral("Discard")}},
                                   answered);
        return alerts_.back();
    }

    static void strike(QWindow* window, Qt::Key key)
    {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(window, &event);
        }
    }

    QTemporaryDir folder_;
    UserDefaults defaults_{folder_.filePath(QStringLiteral("vantro.ini"))};
    doubles::FakeDesktopAppearance appearance_;
    doubles::ManualClock clock_;
    std::optional<UiEngine> ui_;
    QList<QPointer<AlertWindow>> alerts_;
    QList<int> answers_; ///< -1 for no button
};

} // namespace

TEST_F(AlertWindowTest, LeavesTheKeyboardToWhoWorksInAnotherProgram)
{
    const auto editor = TargetProgram::qtEditor(*workspace_);
    const auto unasked = alert();
    unasked->presentUnasked();
    ASSERT_TRUE(eventually([&] { return unasked->isExposed(); }));
    EXPECT_EQ(workspace_->frontWindow(), editor->window());
    user_->strike(Place::space);
    EXPECT_TRUE(eventually([&] { return editor->text() == QStringLiteral(" "); }));
    EXPECT_EQ(QGuiApplication::focusWindow(), nullptr);

    // Who works in a window of this program may answer with a key.
    const auto asked = alert();
    asked->present();
    ASSERT_TRUE(eventually([&] { return workspace_->frontWindow() == asked->winId() && asked->isActive(); }));
    const auto next = alert();
    next->presentUnasked();
    EXPECT_TRUE(eventually([&] { return workspace_->frontWindow() == next->winId(); }));
    delete next.data();
    EXPECT_TRUE(answers_.isEmpty());
}

TEST_F(AlertWindowTest, TakesNoKeyUntilTheKeyboardHasRestedUnlessItWasAskedFor)
{
    const auto asked = alert();
    asked->present();
    ASSERT_TRUE(eventually([&] { return asked->isActive(); }));
    const auto window = alert();
    window->presentUnasked();
    ASSERT_TRUE(eventually([&] { return window->isActive(); }));
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Space, Qt::Key_Escape}) {
        clock_.advance(900ms); // of a word that is being typed
        strike(window, key);
    }
    EXPECT_TRUE(answers_.isEmpty());
    clock_.advance(5s);
    QFocusEvent comesBack(QEvent::FocusIn);
    QCoreApplication::sendEvent(window, &comesBack);
    strike(window, Qt::Key_Space);
    EXPECT_TRUE(answers_.isEmpty()) << "it got the keyboard only now";
    clock_.advance(Dialog::restTime);
    strike(window, Qt::Key_Space);
    EXPECT_EQ(answers_, QList<int>{0});

    asked->present();
    ASSERT_TRUE(eventually([&] { return asked->isActive(); }));
    strike(asked, Qt::Key_Space);
    EXPECT_EQ(answers_, (QList<int>{0, 0}));
}
