#include "KeyboardShortcuts/RawKeyMonitor.h"
#include "base/UserDefaults.h"
#include "base/testing/ManualClock.h"
#include "platform/KeyCode.h"
#include "platform/linux/x11/X11HotKeyManager.h"
#include "platform/testing/FakeDesktopAppearance.h"
#include "platform/testing/FakeDesktopShortcuts.h"
#include "tests/desktop/X11Session.h"
#include "vantro/ui/shortcuts/ShortcutWindow.h"
#include "vantro/ui/style/UiEngine.h"

#include <QTemporaryDir>

using namespace vantro;
using namespace vantro::desktop;
using ::testing::ElementsAre;

namespace {

using Name = KeyboardShortcuts::Name;

constexpr unsigned placeEscape = 9;
constexpr unsigned placeTab = 23;
constexpr unsigned placeBackspace = 22;
constexpr unsigned placeF9 = 75;
constexpr unsigned placeT = 28;
constexpr std::uint32_t ctrlAlt = Modifier::command | Modifier::option;
const std::vector<unsigned> ctrlAltD{Place::leftControl, Place::leftAlt, Place::d};

class ShortcutRecorderTest : public X11Session
{
protected:
    void SetUp() override
    {
        X11Session::SetUp();
        if (IsSkipped())
            return;
        hotKeys_.emplace(*connection_);
        shortcuts_.emplace(*hotKeys_, defaults_, notifications_);
        ui_.emplace(defaults_, appearance_);
        fired_ = shortcuts_->onKeyUp(Name::openModal, owner_, [this] { ++fireCount_; });
    }

    void showWindow()
    {
        window_.emplace(ui_->engine(), clock_, *shortcuts_, *hotKeys_, desktop_, notifications_, QString());
        window_->present();
        ASSERT_TRUE(eventually([&] { return window_->isActive(); }));
    }

    void beginRecording()
    {
        user_->strike(Place::space);
        ASSERT_TRUE(eventually([&] { return recorder().isRecording(); }));
    }

    RecorderCocoa& recorder() { return window_->recorder(); }
    QString stored() const
    {
        const auto shortcut = shortcuts_->shortcut(Name::openModal);
        return shortcut ? shortcut->displayText() : QString();
    }

    QTemporaryDir folder_;
    doubles::ManualClock clock_;
    UserDefaults defaults_{folder_.filePath(QStringLiteral("vantro.ini"))};
    NotificationCenter notifications_;
    doubles::FakeDesktopShortcuts desktop_;
    std::optional<X11HotKeyManager> hotKeys_;
    std::optional<KeyboardShortcuts> shortcuts_;
    doubles::FakeDesktopAppearance appearance_;
    std::optional<UiEngine> ui_;
    QObject owner_;
    KeyboardShortcuts::Registration fired_;
    int fireCount_ = 0;
    std::optional<ShortcutWindow> window_;
};

} // namespace

TEST_F(ShortcutRecorderTest, RecordsWhatIsPressedWithoutFiringIt)
{
    std::vector<bool> active;
    const auto observation =
        notifications_.observe(RecorderCocoa::recorderActiveStatusDidChange, [&](const auto& userInfo) {
            active.push_back(userInfo.value(QStringLiteral("isActive")).toBool());
        });
    showWindow();
    std::vector<QString> changes;
    recorder().setOnChange(
        [&](const auto& shortcut) { changes.push_back(shortcut ? shortcut->displayText() : QString()); });
    EXPECT_EQ(recorder().text(), QString());
    beginRecording();
    user_->press(Place::leftControl);
    user_->press(Place::leftAlt);
    EXPECT_TRUE(eventually([&] { return recorder().text() == QLatin1String("Ctrl+Alt+"); }));
    user_->press(Place::d);
    EXPECT_TRUE(eventually([&] { return recorder().text() == QLatin1String("Ctrl+Alt+D"); }));
    EXPECT_EQ(stored(), QString()) << "the key is still down";
    user_->release(Place::d);
    EXPECT_TRUE(eventually([&] { return !recorder().isRecording(); }));
    user_->release(Place::leftAlt);
    user_->release(Place::leftControl);
    EXPECT_EQ(stored(), QStringLiteral("Ctrl+Alt+D"));
    EXPECT_EQ(fireCount_, 0) << "recording a shortcut must not start a dictation";
    EXPECT_THAT(changes, ElementsAre(QStringLiteral("Ctrl+Alt+D")));
    EXPECT_THAT(active, ElementsAre(true, false));

    user_->chord(ctrlAltD);
    EXPECT_TRUE(eventually([&] { return fireCount_ == 1; }));
    beginRecording();
    user_->chord({placeF9});
    EXPECT_TRUE(eventually([&] { return stored() == QLatin1String("F9"); }));
    user_->chord({placeF9});
    EXPECT_TRUE(eventually([&] { return fireCount_ == 2; }));
}

TEST_F(ShortcutRecorderTest, TheShortcutInForceIsSilentWhileItIsRecordedAnew)
{
    shortcuts_->setShortcut(Name::openModal, KeyboardShortcuts::Shortcut({2}, ctrlAlt));
    showWindow();
    beginRecording();
    user_->chord(ctrlAltD);
    EXPECT_TRUE(eventually([&] { return !recorder().isRecording(); }));
    EXPECT_EQ(fireCount_, 0);
    EXPECT_EQ(stored(), QStringLiteral("Ctrl+Alt+D"));
    EXPECT_EQ(recorder().message(), QString());
}

TEST_F(ShortcutRecorderTest, IsOperatedByTheKeyboard)
{
    shortcuts_->setShortcut(Name::openModal, KeyboardShortcuts::Shortcut({2}, ctrlAlt));
    showWindow();
    beginRecording();
    user_->strike(placeEscape);
    EXPECT_TRUE(eventually([&] { return !recorder().isRecording(); }));
    EXPECT_EQ(stored(), QStringLiteral("Ctrl+Alt+D"));
    EXPECT_TRUE(window_->isVisible()) << "Escape ended the recording, not the window";

    beginRecording();
    user_->strike(placeTab);
    EXPECT_TRUE(eventually([&] { return !recorder().isRecording(); }));
    user_->strike(Place::space); // Tab led to the button that clears
    EXPECT_TRUE(eventually([&] { return stored().isEmpty(); }));

    beginRecording();
    user_->chord(ctrlAltD);
    EXPECT_TRUE(eventually([&] { return stored() == QLatin1String("Ctrl+Alt+D"); }));
    beginRecording();
    user_->strike(placeBackspace);
    EXPECT_TRUE(eventually([&] { return stored().isEmpty() && !recorder().isRecording(); }));
}

TEST_F(ShortcutRecorderTest, RefusesAndOffersToUseItAnyway)
{
    desktop_.shortcuts = {{.keyCode = 17, .modifiers = ctrlAlt, .action = QStringLiteral("Terminal")}};
    showWindow();
    beginRecording();
    user_->strike(Place::d);
    EXPECT_TRUE(eventually([&] { return recorder().message().startsWith(QLatin1String("D is needed for typing")); }));
    EXPECT_FALSE(recorder().canForce());
    EXPECT_TRUE(recorder().isRecording()) << "the next attempt needs no click";

    user_->chord({Place::leftControl, Place::leftAlt, placeT});
    EXPECT_TRUE(eventually([&] { return recorder().canForce(); }));
    EXPECT_TRUE(recorder().message().contains(QLatin1String("Terminal"))) << qPrintable(recorder().message());
    EXPECT_EQ(stored(), QString());
    // Out of the field, and to the button below.
    user_->strike(placeTab);
    EXPECT_TRUE(eventually([&] { return !recorder().isRecording(); }));
    user_->strike(Place::space);
    EXPECT_TRUE(eventually([&] { return stored() == QLatin1String("Ctrl+Alt+T"); }));
    EXPECT_EQ(recorder().message(), QString());
}

TEST_F(ShortcutRecorderTest, EndsWhenAnotherWindowTakesTheKeyboard)
{
    shortcuts_->setShortcut(Name::openModal, KeyboardShortcuts::Shortcut({2}, ctrlAlt));
    showWindow();
    beginRecording();
    const auto editor = TargetProgram::qtEditor(*workspace_);
    EXPECT_TRUE(eventually([&] { return !recorder().isRecording(); }));
    user_->chord(ctrlAltD);
    EXPECT_TRUE(eventually([&] { return fireCount_ == 1; })) << "the hot keys are back in force";
}

TEST_F(ShortcutRecorderTest, RecordsTheLetterOfALayoutWithoutLatinLettersByItsPlace)
{
    user_->setLayout(QStringLiteral("ru"));
    showWindow();
    beginRecording();
    user_->chord(ctrlAltD);
    EXPECT_TRUE(eventually([&] { return stored() == QLatin1String("Ctrl+Alt+D"); })) << qPrintable(stored());
    EXPECT_TRUE(eventually([&] {
        user_->chord(ctrlAltD);
        return fireCount_ > 0;
    }));
}

TEST_F(ShortcutRecorderTest, AnOpenMenuOfOursDoesNotSilenceTheShortcut)
{
    const RawKeyMonitor monitor(*shortcuts_, *hotKeys_);
    shortcuts_->setShortcut(Name::openModal, KeyboardShortcuts::Shortcut({2}, ctrlAlt));
    showWindow();
    user_->chord(ctrlAltD);
    EXPECT_TRUE(eventually([&] { return fireCount_ == 1; }));
    // As a menu does while it is open: hot keys of any program are silent then.
    ASSERT_TRUE(window_->setKeyboardGrabEnabled(true));
    user_->chord(ctrlAltD);
    EXPECT_TRUE(eventually([&] { return fireCount_ == 2; }));
    EXPECT_TRUE(window_->setKeyboardGrabEnabled(false));
    user_->chord(ctrlAltD);
    EXPECT_TRUE(eventually([&] { return fireCount_ == 3; })) << "once each";
}
