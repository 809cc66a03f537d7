#include "platform/KeyCode.h"
#include "platform/linux/x11/X11HotKeyManager.h"
#include "platform/linux/x11/X11KeyEventPoster.h"
#include "tests/desktop/X11Session.h"

#include <QElapsedTimer>

#include <tuple>
#include <utility>
#include <vector>

using namespace vantro;
using namespace vantro::desktop;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr std::uint32_t keyD = 2;
constexpr std::uint32_t keyV = 9;
constexpr std::uint32_t ctrlAlt = Modifier::command | Modifier::option;
// X's numbering, for the other program.
constexpr unsigned xLock = 1U << 1;
constexpr unsigned xCtrlAlt = 1U << 2 | 1U << 3;
/// Where dvorak has its d.
constexpr unsigned dvorakD = 43;

const std::vector<unsigned> ctrlAltD{Place::leftControl, Place::leftAlt, Place::d};

enum class Seen { Pressed, Released };

class X11HotKeyTest : public X11Session
{
protected:
    void SetUp() override
    {
        X11Session::SetUp();
        if (!IsSkipped())
            watch(manager_.emplace(*connection_), seen_);
    }

    static void watch(X11HotKeyManager& manager, std::vector<std::pair<Seen, std::uint32_t>>& seen)
    {
        QObject::connect(&manager, &HotKeyManager::hotKeyPressed, &manager,
                         [&](std::uint32_t id) { seen.emplace_back(Seen::Pressed, id); });
        QObject::connect(&manager, &HotKeyManager::hotKeyReleased, &manager,
                         [&](std::uint32_t id) { seen.emplace_back(Seen::Released, id); });
    }

    /// A hot key of a second name serves as a mark: when it has come through, everything before has.
    std::vector<std::pair<Seen, std::uint32_t>> seenUntilNow()
    {
        constexpr std::uint32_t markId = 999;
        // An m is in this place in every layout used here that has one.
        constexpr std::uint32_t keyM = 46;
        constexpr unsigned placeM = 58;
        manager_->registerHotKey(markId, keyM, ctrlAlt);
        user_->chord({Place::leftControl, Place::leftAlt, placeM});
        EXPECT_TRUE(eventually([&] { return !seen_.empty() && seen_.back() == std::pair(Seen::Released, markId); }));
        manager_->unregisterHotKey(markId);
        std::erase_if(seen_, [](const auto& event) { return event.second == markId; });
        return std::exchange(seen_, {});
    }

    std::optional<X11HotKeyManager> manager_;
    std::vector<std::pair<Seen, std::uint32_t>> seen_;
};

} // namespace

TEST_F(X11HotKeyTest, OnePressAndOneReleaseWhateverLocksAreOn)
{
    manager_->registerHotKey(1, keyD, ctrlAlt);
    const auto once = ElementsAre(std::pair(Seen::Pressed, 1U), std::pair(Seen::Released, 1U));
    user_->chord(ctrlAltD);
    EXPECT_THAT(seenUntilNow(), once);
    user_->strike(Place::capsLock);
    user_->chord(ctrlAltD);
    EXPECT_THAT(seenUntilNow(), once) << "Caps Lock";
    user_->strike(Place::numLock);
    user_->chord(ctrlAltD);
    EXPECT_THAT(seenUntilNow(), once) << "Caps Lock and Num Lock";
    user_->strike(Place::capsLock);
    user_->chord(ctrlAltD);
    EXPECT_THAT(seenUntilNow(), once) << "Num Lock";

    user_->chord({Place::leftControl, Place::leftShift, Place::leftAlt, Place::d});
    user_->chord({Place::leftAlt, Place::d});
    EXPECT_THAT(seenUntilNow(), IsEmpty()) << "more or fewer modifiers are another combination";
}

TEST_F(X11HotKeyTest, ModifiersMayComeUpBeforeTheKey)
{
    manager_->registerHotKey(1, keyD, ctrlAlt);
    for (const unsigned place : ctrlAltD)
        user_->press(place);
    for (const unsigned place : ctrlAltD)
        user_->release(place);
    EXPECT_THAT(seenUntilNow(), ElementsAre(std::pair(Seen::Pressed, 1U), std::pair(Seen::Released, 1U)));
}

TEST_F(X11HotKeyTest, AHeldKeyDoesNotRepeat)
{
    // How long it takes until an ordinary key has repeated a few times.
    const auto editor = TargetProgram::qtEditor(*workspace_);
    user_->press(Place::d);
    EXPECT_TRUE(eventually([&] { return editor->text().size() >= 6; }));
    user_->release(Place::d);
    // The editor is behind the keyboard: it has seen the last repetition when it has seen what was typed after it.
    user_->strike(Place::v);
    EXPECT_TRUE(eventually([&] { return editor->text().endsWith(QLatin1Char('v')); }));
    const auto textBefore = editor->text();

    manager_->registerHotKey(1, KeyCode::space, 0);
    user_->press(Place::space);
    user_->press(Place::leftShift);
    EXPECT_TRUE(eventually([&] { return !seen_.empty(); }));
    user_->release(Place::leftShift);
    // The same stretch again, told by the same means.
    QElapsedTimer held;
    held.start();
    EXPECT_TRUE(eventually([&] { return held.elapsed() > 1200; }));
    user_->release(Place::space);
    EXPECT_THAT(seenUntilNow(), ElementsAre(std::pair(Seen::Pressed, 1U), std::pair(Seen::Released, 1U)));
    EXPECT_EQ(editor->text(), textBefore) << "a hot key must not reach the window";

    manager_->unregisterHotKey(1);
    user_->strike(Place::space);
    EXPECT_TRUE(eventually([&] { return editor->text() == textBefore + QLatin1Char(' '); }))
        << "Space must type a space again";
}

TEST_F(X11HotKeyTest, MediaKeysAndFunctionKeysNeedNoModifier)
{
    constexpr unsigned placeF9 = 75;
    constexpr unsigned placeMicrophoneMute = 198;
    constexpr std::uint32_t keyF9 = 101;
    constexpr std::uint32_t microphoneMute = KeyCode::keysymBase + 0x1008ffb2;
    ASSERT_EQ(manager_->keyCodeOf(placeMicrophoneMute), microphoneMute) << "another keyboard than expected";
    EXPECT_EQ(manager_->keyCodeOf(placeF9), keyF9);
    EXPECT_EQ(manager_->keyCodeOf(Place::leftControl), std::nullopt);
    manager_->registerHotKey(1, keyF9, 0);
    manager_->registerHotKey(2, microphoneMute, 0);
    user_->strike(placeF9);
    user_->strike(placeMicrophoneMute);
    EXPECT_THAT(seenUntilNow(), ElementsAre(std::pair(Seen::Pressed, 1U), std::pair(Seen::Released, 1U),
                                            std::pair(Seen::Pressed, 2U), std::pair(Seen::Released, 2U)));
}

TEST_F(X11HotKeyTest, ACombinationOfAnotherProgramIsRefusedWithTheReason)
{
    // Even if it is taken with Caps Lock only.
    user_->grabForOtherProgram(Place::d, xCtrlAlt | xLock);
    try {
        manager_->registerHotKey(1, keyD, ctrlAlt);
        FAIL() << "the combination is taken";
    } catch (const HotKeyError& error) {
        EXPECT_THAT(error.localizedDescription().toStdString(),
                    ::testing::StartsWith("Ctrl+Alt+D is already used by another program."));
    }
    user_->chord(ctrlAltD);
    EXPECT_THAT(seenUntilNow(), IsEmpty());
    EXPECT_THROW(manager_->registerHotKey(2, KeyCode::keysymBase + 0x1008ff99, 0), HotKeyError) << "no such key";

    manager_->registerHotKey(3, keyV, ctrlAlt);
    X11Connection otherConnection;
    X11HotKeyManager other(otherConnection);
    EXPECT_THROW(other.registerHotKey(1, keyV, ctrlAlt), HotKeyError);
    manager_->unregisterHotKey(3);
    other.registerHotKey(1, keyV, ctrlAlt);
}

TEST_F(X11HotKeyTest, FollowsTheKeyThroughLayoutsAndNeverLosesARelease)
{
    manager_->registerHotKey(1, keyD, ctrlAlt);
    const auto once = ElementsAre(std::pair(Seen::Pressed, 1U), std::pair(Seen::Released, 1U));

    // Another layout while the key is down, in which its letter is elsewhere.
    for (const unsigned place : ctrlAltD)
        user_->press(place);
    EXPECT_TRUE(eventually([&] { return seen_.size() == 1; }));
    user_->setLayout(QStringLiteral("dvorak"));
    user_->chord({Place::leftShift});
    for (const unsigned place : ctrlAltD)
        user_->release(place);
    EXPECT_THAT(seenUntilNow(), once);

    EXPECT_TRUE(eventually([&] {
        user_->chord({Place::leftControl, Place::leftAlt, dvorakD});
        return !seenUntilNow().empty();
    }));
    user_->chord(ctrlAltD);
    EXPECT_THAT(seenUntilNow(), IsEmpty()) << "the key is a dvorak e now";

    // No Latin letters at all, and Latin letters in the layout that is not active.
    for (const auto& [layouts, group] : {std::pair("ru", 0U), std::pair("us,ru", 1U), std::pair("gr,us", 0U)}) {
        user_->setLayout(QString::fromLatin1(layouts), group);
        EXPECT_TRUE(eventually([&] {
            user_->chord(ctrlAltD);
            return !seenUntilNow().empty();
        })) << layouts;
    }
}

TEST_F(X11HotKeyTest, IsFoundOnTheKeyboardThatIsPressed)
{
    user_->setLayoutOf(DesktopUser::Keyboard::own, {QStringLiteral("dvorak")});
    user_->setLayoutOf(DesktopUser::Keyboard::synthesised, {QStringLiteral("us")});
    manager_->registerHotKey(1, keyD, ctrlAlt);
    X11KeyEventPoster poster(*connection_);
    for (int round = 0; round < 3; ++round) {
        poster.postPaste(KeyEventPoster::PasteChord::ControlV); // from now on the programs' keyboard is the other one
        user_->chord({Place::leftControl, Place::leftAlt, dvorakD});
        EXPECT_THAT(seenUntilNow(), ElementsAre(std::pair(Seen::Pressed, 1U), std::pair(Seen::Released, 1U)));
    }
    user_->chord(ctrlAltD);
    EXPECT_THAT(seenUntilNow(), IsEmpty()) << "the key is a dvorak e there";
}

TEST_F(X11HotKeyTest, APressAfterAPasteOverTheHeldKeyCounts)
{
    manager_->registerHotKey(1, keyD, ctrlAlt);
    X11KeyEventPoster poster(*connection_);
    for (const unsigned place : ctrlAltD)
        user_->press(place);
    EXPECT_TRUE(eventually([&] { return seen_.size() == 1; }));
    poster.postPaste(KeyEventPoster::PasteChord::ControlV); // takes the key from the hot key
    for (const unsigned place : ctrlAltD)
        user_->release(place);
    std::ignore = seenUntilNow();
    user_->chord(ctrlAltD);
    EXPECT_THAT(seenUntilNow(), ElementsAre(std::pair(Seen::Pressed, 1U), std::pair(Seen::Released, 1U)));
}

TEST_F(X11HotKeyTest, TellsWhenALayoutChangeTakesTheKeyAwayAndComesBackWithTheNext)
{
    std::vector<std::pair<std::uint32_t, QString>> lost;
    QObject::connect(&*manager_, &HotKeyManager::hotKeyLost, &*manager_,
                     [&](std::uint32_t id, const QString& reason) { lost.emplace_back(id, reason); });
    manager_->registerHotKey(1, keyD, ctrlAlt);
    user_->grabForOtherProgram(dvorakD, xCtrlAlt);
    user_->setLayout(QStringLiteral("dvorak"));
    EXPECT_TRUE(eventually([&] { return lost.size() == 1; }));
    EXPECT_EQ(lost.front().first, 1U);
    EXPECT_TRUE(lost.front().second.contains(QStringLiteral("Ctrl+Alt+D")));

    user_->setLayout(QStringLiteral("us"));
    EXPECT_TRUE(eventually([&] {
        user_->chord(ctrlAltD);
        return !seenUntilNow().empty();
    }));
    EXPECT_EQ(lost.size(), 1U);
}
