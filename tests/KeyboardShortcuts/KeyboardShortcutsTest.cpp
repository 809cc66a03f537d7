#include "KeyboardShortcuts/KeyboardShortcuts.h"

#include "platform/KeyCode.h"
#include "platform/testing/FakeHotKeyManager.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

using namespace vantro;
using namespace vantro::doubles;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Combination = FakeHotKeyManager::Combination;
using Name = KeyboardShortcuts::Name;
using Shortcut = KeyboardShortcuts::Shortcut;

constexpr Combination ctrlAltD{2, Modifier::command | Modifier::option};
constexpr Combination ctrlAltSpace{KeyCode::space, Modifier::command | Modifier::option};
constexpr Combination space{KeyCode::space, 0};

Shortcut shortcutOf(Combination combination)
{
    return {KeyboardShortcuts::Key{combination.keyCode}, combination.modifiers};
}

class KeyboardShortcutsTest : public ::testing::Test
{
protected:
    KeyboardShortcuts::Registration note(const Name& name, const std::string& what)
    {
        return shortcuts_.onKeyUp(name, owner_, [this, what] { calls_.push_back(what); });
    }

    QTemporaryDir folder_;
    UserDefaults defaults_{folder_.filePath(QStringLiteral("vantro.ini"))};
    NotificationCenter notifications_;
    FakeHotKeyManager hotKeys_;
    KeyboardShortcuts shortcuts_{hotKeys_, defaults_, notifications_};
    QObject owner_;
    std::vector<std::string> calls_;
};

} // namespace

TEST_F(KeyboardShortcutsTest, StoresAShortcutAsTheJsonTextOfItsRecordAndForgetsIt)
{
    EXPECT_EQ(shortcuts_.shortcut(Name::openModal), std::nullopt);
    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltD));

    // Read as another run of the program would.
    UserDefaults later(folder_.filePath(QStringLiteral("vantro.ini")));
    EXPECT_EQ(later.read<QString>(QStringLiteral("KeyboardShortcuts_openModal")),
              QStringLiteral(R"({"carbonKeyCode":2,"carbonModifiers":2304})"));
    EXPECT_EQ(KeyboardShortcuts(hotKeys_, later, notifications_).shortcut(Name::openModal), shortcutOf(ctrlAltD));

    shortcuts_.setShortcut(Name::openModal, std::nullopt);
    EXPECT_FALSE(defaults_.contains(QStringLiteral("KeyboardShortcuts_openModal")));
    EXPECT_EQ(shortcuts_.shortcut(Name::openModal), std::nullopt);
}

TEST_F(KeyboardShortcutsTest, FallsBackToTheNamesDefaultAndIgnoresADamagedRecord)
{
    EXPECT_EQ(shortcuts_.shortcut(Name::stopRecordingAndCloseModal), shortcutOf(space));
    shortcuts_.setShortcut(Name::stopRecordingAndCloseModal, shortcutOf(ctrlAltD));
    EXPECT_EQ(shortcuts_.shortcut(Name::stopRecordingAndCloseModal), shortcutOf(ctrlAltD));
    for (const char* const damaged :
         {"", "{", "[]", R"({"carbonKeyCode":2})", R"({"carbonKeyCode":"2","carbonModifiers":0})"}) {
        defaults_.write(QStringLiteral("KeyboardShortcuts_stopRecordingAndCloseModal"), QString::fromLatin1(damaged));
        EXPECT_EQ(shortcuts_.shortcut(Name::stopRecordingAndCloseModal), shortcutOf(space)) << damaged;
    }
}

TEST_F(KeyboardShortcutsTest, RunsKeyDownAndKeyUpActionsInTheOrderTheyCame)
{
    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltD));
    const auto first = note(Name::openModal, "up 1");
    const auto down = shortcuts_.onKeyDown(Name::openModal, owner_, [this] { calls_.emplace_back("down"); });
    const auto second = note(Name::openModal, "up 2");
    EXPECT_EQ(hotKeys_.count(), 1U);

    hotKeys_.press(ctrlAltD);
    EXPECT_THAT(calls_, ElementsAre("down"));
    hotKeys_.release(ctrlAltD);
    EXPECT_THAT(calls_, ElementsAre("down", "up 1", "up 2"));
}

TEST_F(KeyboardShortcutsTest, HoldsAHotKeyOnlyWhileSomethingListensToAnEnabledNameWithAShortcut)
{
    const auto open = note(Name::openModal, "open");
    EXPECT_EQ(hotKeys_.count(), 0U) << "openModal has no shortcut yet";
    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltD));
    EXPECT_TRUE(hotKeys_.isRegistered(ctrlAltD));

    auto stop = note(Name::stopRecordingAndCloseModal, "stop");
    EXPECT_FALSE(hotKeys_.isRegistered(space)) << "Space must type a space until the launcher has the keyboard";
    shortcuts_.enable({Name::stopRecordingAndCloseModal});
    EXPECT_TRUE(hotKeys_.isRegistered(space));
    shortcuts_.disable({Name::stopRecordingAndCloseModal});
    EXPECT_FALSE(hotKeys_.isRegistered(space));
    shortcuts_.enable({Name::stopRecordingAndCloseModal});
    stop.reset();
    EXPECT_FALSE(hotKeys_.isRegistered(space)) << "nobody listens any more";

    shortcuts_.setShortcut(Name::openModal, std::nullopt);
    EXPECT_EQ(hotKeys_.count(), 0U);
}

TEST_F(KeyboardShortcutsTest, AChangedShortcutTakesTheFormerOnesPlaceUnderANewIdAndIsAnnounced)
{
    std::vector<QString> changed;
    const auto observation =
        notifications_.observe(QStringLiteral("KeyboardShortcuts_shortcutByNameDidChange"), [&](const auto& userInfo) {
            changed.push_back(userInfo.value(QStringLiteral("name")).toString());
        });
    const auto open = note(Name::openModal, "open");
    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltD));
    hotKeys_.press(ctrlAltD);
    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltSpace));
    hotKeys_.release(ctrlAltD);
    EXPECT_THAT(calls_, IsEmpty()) << "the key held for the former shortcut must not fire the new one";

    EXPECT_FALSE(hotKeys_.isRegistered(ctrlAltD));
    hotKeys_.strike(ctrlAltSpace);
    EXPECT_THAT(calls_, ElementsAre("open"));
    EXPECT_THAT(changed, ElementsAre(QStringLiteral("openModal"), QStringLiteral("openModal")));
    const auto& ids = hotKeys_.idsEverUsed();
    EXPECT_EQ(std::set(ids.begin(), ids.end()).size(), ids.size());
}

TEST_F(KeyboardShortcutsTest, ActionsMayEndTheirOwnAndOthersRegistrationsAndOutliveTheirOwner)
{
    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltD));
    auto owner = std::make_unique<QObject>();
    const auto orphan = shortcuts_.onKeyUp(Name::openModal, *owner, [this] { calls_.emplace_back("orphan"); });
    KeyboardShortcuts::Registration once;
    KeyboardShortcuts::Registration later;
    once = shortcuts_.onKeyUp(Name::openModal, owner_, [&] {
        calls_.emplace_back("once");
        once.reset();
        later.reset();
    });
    later = note(Name::openModal, "later");
    const auto last = note(Name::openModal, "last");
    owner.reset();

    hotKeys_.strike(ctrlAltD);
    EXPECT_THAT(calls_, ElementsAre("once", "last"));
    hotKeys_.strike(ctrlAltD);
    EXPECT_THAT(calls_, ElementsAre("once", "last", "last"));
}

TEST_F(KeyboardShortcutsTest, TellsWhyAShortcutDoesNotWorkAndRecoversWithAnother)
{
    std::vector<QString> failures;
    QObject::connect(&shortcuts_, &KeyboardShortcuts::shortcutFailed, &owner_,
                     [&](const QString& name, const QString& reason) {
                         failures.push_back(QStringLiteral("%1: %2").arg(name, reason));
                     });
    hotKeys_.refuse(ctrlAltD, QStringLiteral("taken"));
    const auto open = note(Name::openModal, "open");
    ::testing::internal::CaptureStderr();
    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltD));
    EXPECT_THAT(::testing::internal::GetCapturedStderr(),
                ::testing::HasSubstr("Error registering hotkey openModal: taken"));
    EXPECT_EQ(shortcuts_.failure(Name::openModal), QStringLiteral("taken"));
    EXPECT_EQ(hotKeys_.count(), 0U);

    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltSpace));
    EXPECT_EQ(shortcuts_.failure(Name::openModal), std::nullopt);
    hotKeys_.lose(ctrlAltSpace, QStringLiteral("lost"));
    EXPECT_EQ(shortcuts_.failure(Name::openModal), QStringLiteral("lost"));

    Shortcut tooLarge = shortcutOf(ctrlAltD);
    tooLarge.carbonKeyCode = qint64{1} << 32;
    shortcuts_.setShortcut(Name::openModal, tooLarge);
    EXPECT_EQ(hotKeys_.count(), 0U);
    EXPECT_TRUE(shortcuts_.failure(Name::openModal).has_value());
    EXPECT_EQ(failures.size(), 3U);
}

TEST_F(KeyboardShortcutsTest, AFailedShortcutWorksAgainOnceItsKeysAreFree)
{
    QStringList news;
    QObject::connect(&shortcuts_, &KeyboardShortcuts::shortcutFailed, &owner_,
                     [&] { news << QStringLiteral("failed"); });
    QObject::connect(&shortcuts_, &KeyboardShortcuts::shortcutRecovered, &owner_,
                     [&] { news << QStringLiteral("works"); });
    const auto open = note(Name::openModal, "open");
    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltD));
    hotKeys_.refuse(ctrlAltD, QStringLiteral("taken"));
    ::testing::internal::CaptureStderr();
    hotKeys_.lose(ctrlAltD, QStringLiteral("lost"));
    Q_EMIT hotKeys_.keyboardChanged();
    EXPECT_TRUE(shortcuts_.failure(Name::openModal));
    hotKeys_.allow(ctrlAltD);
    Q_EMIT hotKeys_.keyboardChanged();
    ::testing::internal::GetCapturedStderr();
    EXPECT_FALSE(shortcuts_.failure(Name::openModal));
    hotKeys_.strike(ctrlAltD);
    EXPECT_THAT(calls_, ElementsAre("open"));
    EXPECT_EQ(news, QStringList({QStringLiteral("failed"), QStringLiteral("works")}));
}

TEST_F(KeyboardShortcutsTest, ProposesTheFirstFreeCombinationOnlyWhereNoneIsStored)
{
    hotKeys_.refuse(ctrlAltD, QStringLiteral("taken"));
    EXPECT_EQ(shortcuts_.proposeShortcut(Name::openModal), shortcutOf(ctrlAltSpace));
    EXPECT_EQ(shortcuts_.shortcut(Name::openModal), shortcutOf(ctrlAltSpace));
    EXPECT_EQ(hotKeys_.count(), 0U) << "trying must leave nothing registered";

    hotKeys_.allow(ctrlAltD);
    EXPECT_EQ(shortcuts_.proposeShortcut(Name::openModal), shortcutOf(ctrlAltSpace));
}

TEST_F(KeyboardShortcutsTest, HoldsNothingWhileSuspended)
{
    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltD));
    const auto open = note(Name::openModal, "open");
    shortcuts_.suspend();
    shortcuts_.suspend();
    EXPECT_EQ(hotKeys_.count(), 0U);
    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltSpace));
    shortcuts_.resume();
    EXPECT_EQ(hotKeys_.count(), 0U);
    shortcuts_.resume();
    EXPECT_TRUE(hotKeys_.isRegistered(ctrlAltSpace));
    EXPECT_FALSE(hotKeys_.isRegistered(ctrlAltD));
}

TEST(KeyboardShortcuts, ARegistrationMayOutliveTheShortcuts)
{
    const QTemporaryDir folder;
    UserDefaults defaults(folder.filePath(QStringLiteral("vantro.ini")));
    NotificationCenter notifications;
    FakeHotKeyManager hotKeys;
    QObject owner;
    auto shortcuts = std::make_unique<KeyboardShortcuts>(hotKeys, defaults, notifications);
    shortcuts->setShortcut(Name::openModal, shortcutOf(ctrlAltD));
    const auto registration = shortcuts->onKeyUp(Name::openModal, owner, [] {});
    shortcuts.reset();
    EXPECT_EQ(hotKeys.count(), 0U);
}

TEST_F(KeyboardShortcutsTest, AdoptsAShortcutThatAnotherProcessHasSet)
{
    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltD));
    const auto open = note(Name::openModal, "open");
    std::vector<QString> ended;
    QObject::connect(&shortcuts_, &KeyboardShortcuts::holdEnded, &owner_,
                     [&](const QString& name) { ended.push_back(name); });
    hotKeys_.press(ctrlAltD);

    UserDefaults others(folder_.filePath(QStringLiteral("vantro.ini")));
    NotificationCenter otherNotifications;
    FakeHotKeyManager otherHotKeys;
    KeyboardShortcuts(otherHotKeys, others, otherNotifications).setShortcut(Name::openModal, shortcutOf(ctrlAltSpace));
    int changes = 0;
    const auto observation =
        notifications_.observe(KeyboardShortcuts::shortcutByNameDidChange, [&](const auto&) { ++changes; });
    defaults_.reload();
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(hotKeys_.isRegistered(ctrlAltD));
    EXPECT_THAT(ended, ElementsAre(QStringLiteral("openModal"))) << "its release will not be told";
    hotKeys_.strike(ctrlAltSpace);
    EXPECT_THAT(calls_, ElementsAre("open"));
}

TEST_F(KeyboardShortcutsTest, RawKeyEventsOfItsOwnWindowsServeTheSameShortcuts)
{
    hotKeys_.refuse(ctrlAltD, QStringLiteral("taken"));
    shortcuts_.setShortcut(Name::openModal, shortcutOf(ctrlAltD));
    const auto down = shortcuts_.onKeyDown(Name::openModal, owner_, [this] { calls_.emplace_back("down"); });
    int failures = 0;
    QObject::connect(&shortcuts_, &KeyboardShortcuts::shortcutFailed, &owner_, [&] { ++failures; });
    ::testing::internal::CaptureStderr();
    const auto up = note(Name::openModal, "up");
    EXPECT_EQ(failures, 0) << "it was told once already";
    EXPECT_FALSE(shortcuts_.handleRawKeyDown(shortcutOf(space))) << "it starts out disabled";
    EXPECT_FALSE(shortcuts_.handleRawKeyUp({ctrlAltD.keyCode})) << "it was not pressed here";
    EXPECT_TRUE(shortcuts_.handleRawKeyDown(shortcutOf(ctrlAltD)));
    EXPECT_TRUE(shortcuts_.handleRawKeyDown(shortcutOf(ctrlAltD))) << "a repetition";
    EXPECT_TRUE(shortcuts_.handleRawKeyUp({ctrlAltD.keyCode}));
    EXPECT_THAT(calls_, ElementsAre("down", "up"));

    shortcuts_.suspend();
    EXPECT_FALSE(shortcuts_.handleRawKeyDown(shortcutOf(ctrlAltD)));
    ::testing::internal::GetCapturedStderr();
}
