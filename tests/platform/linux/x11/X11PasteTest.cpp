#include "platform/linux/x11/X11KeyEventPoster.h"
#include "platform/linux/x11/X11Pasteboard.h"
#include "tests/desktop/X11Session.h"

#include <QElapsedTimer>
#include <QWindow>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <memory>
#include <string>
#include <vector>

using namespace vantro;
using namespace vantro::desktop;
using ::testing::IsEmpty;

namespace {

using Chord = KeyEventPoster::PasteChord;
using Selection = Pasteboard::Selection;

constexpr unsigned long latinV = 'v';
constexpr unsigned lockModifier = 1U << 1;
constexpr unsigned numLockModifier = 1U << 4;

struct Layout
{
    const char* names;
    unsigned group = 0;
};
const std::vector<Layout> layouts{{"us"}, {"dvorak"}, {"de"},       {"fr"},       {"ru"},
                                  {"gr"}, {"il"},     {"us,ru", 1}, {"ru,us", 0}, {"ru,gr", 1}};

class X11PasteTest : public X11Session
{
protected:
    void SetUp() override
    {
        X11Session::SetUp();
        if (IsSkipped())
            return;
        poster_.emplace(*connection_);
        pasteboard_.emplace();
    }

    /// Pastes a text of its own into @p target and tells whether it came.
    bool pasteArrives(TargetProgram& target, Chord chord)
    {
        const QString text = QStringLiteral("<Grüße %1>").arg(++count_);
        pasteboard_->setString(chord == Chord::ShiftInsert ? Selection::Primary : Selection::Clipboard, text);
        poster_->postPaste(chord);
        return eventually([&] { return target.text().endsWith(text); });
    }

    void expectPasteUnderEveryLayout(TargetProgram& target, Chord chord, const std::string& except = {})
    {
        for (const Layout& layout : layouts) {
            if (layout.names == except)
                continue;
            user_->setLayout(QString::fromLatin1(layout.names), layout.group);
            EXPECT_TRUE(pasteArrives(target, chord)) << layout.names << " group " << layout.group;
            EXPECT_EQ(user_->activeGroup(), layout.group) << layout.names;
            EXPECT_THAT(user_->keysDown(), IsEmpty()) << layout.names;
        }
    }

    std::optional<X11KeyEventPoster> poster_;
    std::optional<X11Pasteboard> pasteboard_;
    int count_ = 0;
};

} // namespace

TEST_F(X11PasteTest, ArrivesInAQtFieldUnderEveryLayout)
{
    expectPasteUnderEveryLayout(*TargetProgram::qtEditor(*workspace_), Chord::ControlV);
}

TEST_F(X11PasteTest, ArrivesInXtermUnderEveryLayout)
{
    expectPasteUnderEveryLayout(*TargetProgram::xterm(*workspace_), Chord::ShiftInsert);
    // The letter itself, with a program that knows the keyboard only by the core protocol.
    expectPasteUnderEveryLayout(*TargetProgram::xterm(*workspace_, QStringLiteral("Ctrl ~Shift <Key>v")),
                                Chord::ControlV);
    // Where the Latin layout comes second, xterm's library does not know this chord from the user's fingers either.
    expectPasteUnderEveryLayout(*TargetProgram::xterm(*workspace_, QStringLiteral("Ctrl Shift <Key>v")),
                                Chord::ControlShiftV, "ru,us");
}

TEST_F(X11PasteTest, ArrivesInAGtkEditorUnderEveryLayout)
{
    const auto editor = TargetProgram::mousepad(*workspace_, *user_);
    for (const Layout& layout : layouts) {
        user_->setLayout(QString::fromLatin1(layout.names), layout.group);
        const QString text = QStringLiteral("<Grüße %1>").arg(++count_);
        pasteboard_->setString(Selection::Clipboard, text);
        poster_->postPaste(Chord::ControlV);
        EXPECT_TRUE(eventually([&] { return pasteboard_->wasFetchedBy(Selection::Clipboard, editor->window()); }))
            << layout.names;
        EXPECT_TRUE(eventually([&] { return editor->text().endsWith(text); })) << layout.names;
    }
}

TEST_F(X11PasteTest, AskingWhoHasTheKeyboardTakesItFromNobody)
{
    const std::unique_ptr<Display, decltype(&XCloseDisplay)> other(XOpenDisplay(nullptr), &XCloseDisplay);
    const auto grab = [](Display* display) {
        return XGrabKeyboard(display, DefaultRootWindow(display), False, GrabModeAsync, GrabModeAsync, CurrentTime);
    };
    const auto release = [](Display* display) {
        XUngrabKeyboard(display, CurrentTime);
        XSync(display, False);
    };
    EXPECT_FALSE(poster_->isKeyboardTaken());
    ASSERT_EQ(grab(other.get()), GrabSuccess) << "nobody has it after the question";
    EXPECT_TRUE(poster_->isKeyboardTaken());
    release(other.get());
    ASSERT_EQ(grab(connection_->display()), GrabSuccess); // as a held hot key does
    EXPECT_FALSE(poster_->isKeyboardTaken()) << "our own grab is no obstacle";
    EXPECT_EQ(grab(other.get()), AlreadyGrabbed) << "our own grab is not lost by the question";
    release(connection_->display());
}

TEST_F(X11PasteTest, AMenuIsToldFromALocker)
{
    QWindow locker;
    locker.setFlags(Qt::BypassWindowManagerHint);
    locker.setGeometry(0, 0, 2000, 2000);
    locker.show();
    ASSERT_TRUE(eventually([&] { return locker.isExposed(); }));
    EXPECT_FALSE(poster_->isMenuOpen());
    QWindow menu;
    menu.setFlags(Qt::Popup);
    menu.resize(100, 100);
    menu.create();
    Display* const display = connection_->display();
    const Atom type = XInternAtom(display, "_NET_WM_WINDOW_TYPE_POPUP_MENU", False); // as QMenu and GtkMenu do
    XChangeProperty(display, menu.winId(), XInternAtom(display, "_NET_WM_WINDOW_TYPE", False), XA_ATOM, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(&type), 1);
    menu.show();
    EXPECT_TRUE(eventually([&] { return poster_->isMenuOpen(); }));
    menu.hide();
    EXPECT_TRUE(eventually([&] { return !poster_->isMenuOpen(); }));
}

TEST_F(X11PasteTest, HeldModifiersAreReleasedAndStayReleased)
{
    const auto editor = TargetProgram::qtEditor(*workspace_);
    constexpr unsigned altGr = 108;
    constexpr unsigned rightShift = 62;
    const std::vector<std::vector<unsigned>> held{{Place::leftShift},
                                                  {Place::leftAlt},
                                                  {Place::leftSuper},
                                                  {Place::leftControl},
                                                  {altGr},
                                                  {Place::leftShift, rightShift},
                                                  {Place::leftControl, Place::leftAlt, Place::leftShift}};
    for (const auto& layout : {"us", "ru", "de"}) {
        user_->setLayout(QString::fromLatin1(layout));
        for (const auto& places : held) {
            for (const unsigned place : places)
                user_->press(place);
            EXPECT_TRUE(pasteArrives(*editor, Chord::ControlV)) << layout << " key " << places.front();
            EXPECT_THAT(user_->keysDown(), IsEmpty());
            EXPECT_EQ(user_->modifiers(), 0U);
            for (const unsigned place : places)
                user_->release(place);
        }
    }
}

TEST_F(X11PasteTest, LocksDoNotMatterAndStayAsTheyAre)
{
    const auto terminal = TargetProgram::xterm(*workspace_, QStringLiteral("Ctrl Shift ~Lock <Key>v"));
    user_->strike(Place::capsLock);
    user_->strike(Place::numLock);
    EXPECT_TRUE(pasteArrives(*terminal, Chord::ControlShiftV));
    EXPECT_EQ(user_->modifiers(), lockModifier | numLockModifier);
    user_->strike(Place::capsLock);
    user_->strike(Place::numLock);

    const auto editor = TargetProgram::qtEditor(*workspace_);
    user_->lockShift(true);
    EXPECT_TRUE(pasteArrives(*editor, Chord::ControlV));
}

TEST_F(X11PasteTest, ArrivesThroughAKeyboardWhoseLayoutIsNotTheUsers)
{
    const auto editor = TargetProgram::qtEditor(*workspace_);
    const auto terminal = TargetProgram::xterm(*workspace_, QStringLiteral("Ctrl Shift <Key>v"));
    const QString swapped = QStringLiteral("ctrl:swapcaps");
    const std::vector<std::pair<QStringList, QStringList>> layouts{
        {{QStringLiteral("dvorak")}, {QStringLiteral("us")}},
        {{QStringLiteral("us")}, {QStringLiteral("dvorak")}},
        {{QStringLiteral("us"), QStringLiteral("-option"), swapped}, {QStringLiteral("us")}},
        {{QStringLiteral("us")}, {QStringLiteral("us"), QStringLiteral("-option"), swapped}},
        {{QStringLiteral("us")}, {QStringLiteral("ru")}},
        {{QStringLiteral("us,ru")}, {QStringLiteral("dvorak")}}};
    for (const auto& [own, synthesised] : layouts) {
        user_->setLayout(QStringLiteral("de"));
        user_->setLayoutOf(DesktopUser::Keyboard::own, own);
        user_->setLayoutOf(DesktopUser::Keyboard::synthesised, synthesised);
        const std::string name = (own + synthesised).join(QLatin1Char(' ')).toStdString();
        for (const auto& [target, chord] :
             {std::pair(editor.get(), Chord::ControlV), std::pair(terminal.get(), Chord::ControlShiftV)}) {
            workspace_->activateWindow(target->window());
            ASSERT_TRUE(eventually([&] { return workspace_->hasInputFocus(target->window()); }));
            user_->strike(Place::leftShift); // the programs' keyboard takes over the user's layout
            EXPECT_TRUE(pasteArrives(*target, chord)) << name;
            EXPECT_THAT(user_->keysDown(), IsEmpty()) << name;
            EXPECT_EQ(user_->modifiers(), 0U) << name;
        }
    }
}

TEST_F(X11PasteTest, AHeldKeyIsReleasedForWhatItIsOnTheUsersKeyboard)
{
    const auto editor = TargetProgram::qtEditor(*workspace_);
    user_->setLayoutOf(DesktopUser::Keyboard::own,
                       {QStringLiteral("us"), QStringLiteral("-option"), QStringLiteral("ctrl:swapcaps")});
    user_->press(Place::capsLock);
    EXPECT_TRUE(pasteArrives(*editor, Chord::ControlV));
    EXPECT_EQ(user_->modifiers(), 0U);
    user_->release(Place::capsLock);
    EXPECT_EQ(user_->modifiers(), 0U);
}

TEST_F(X11PasteTest, ATargetThatIsBusyStillFindsTheLetterThatItsLayoutLacks)
{
    user_->setLayout(QStringLiteral("ru"));
    ASSERT_FALSE(user_->layoutHas(latinV));
    const auto editor = TargetProgram::qtEditor(*workspace_);
    editor->freeze();
    pasteboard_->setString(Selection::Clipboard, QStringLiteral("late"));
    poster_->postPaste(Chord::ControlV);
    QElapsedTimer frozen;
    frozen.start();
    EXPECT_TRUE(eventually([&] { return frozen.elapsed() > 1000; }));
    editor->thaw();
    EXPECT_TRUE(eventually([&] { return editor->text() == QStringLiteral("late"); }));
    EXPECT_TRUE(eventually([&] { return !user_->layoutHas(latinV); })) << "the borrowed key was not given back";

    // Nor is it left behind when the program ends first.
    EXPECT_TRUE(pasteArrives(*editor, Chord::ControlV));
    EXPECT_TRUE(user_->layoutHas(latinV));
    poster_.reset();
    EXPECT_FALSE(user_->layoutHas(latinV));
}

TEST_F(X11PasteTest, SeesOrdinaryKeysThatAreDown)
{
    EXPECT_FALSE(poster_->isOrdinaryKeyDown());
    user_->press(Place::leftShift);
    EXPECT_FALSE(poster_->isOrdinaryKeyDown());
    user_->press(Place::d);
    EXPECT_TRUE(poster_->isOrdinaryKeyDown());
    user_->release(Place::d);
    user_->release(Place::leftShift);
    EXPECT_FALSE(poster_->isOrdinaryKeyDown());
}
