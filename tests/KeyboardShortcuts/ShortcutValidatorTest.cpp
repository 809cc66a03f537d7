#include "KeyboardShortcuts/ShortcutValidator.h"

#include "platform/KeyCode.h"
#include "platform/testing/FakeDesktopShortcuts.h"
#include "platform/testing/FakeHotKeyManager.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace vantro;
using namespace vantro::doubles;

namespace {

using Name = KeyboardShortcuts::Name;
using Reason = ShortcutRefusal::Reason;

class ShortcutValidatorTest : public ::testing::Test
{
protected:
    static KeyboardShortcuts::Shortcut keys(const char* text)
    {
        const auto parsed = parseShortcut(QString::fromUtf8(text));
        EXPECT_TRUE(parsed) << text;
        return {{parsed->keyCode}, parsed->modifiers};
    }

    std::optional<ShortcutRefusal> refusal(const char* text, const Name& name = Name::openModal)
    {
        return validator_.refusal(name, keys(text));
    }

    QTemporaryDir folder_;
    UserDefaults defaults_{folder_.filePath(QStringLiteral("vantro.ini"))};
    NotificationCenter notifications_;
    FakeHotKeyManager hotKeys_;
    FakeDesktopShortcuts desktop_;
    KeyboardShortcuts shortcuts_{hotKeys_, defaults_, notifications_};
    ShortcutValidator validator_{shortcuts_, desktop_};
};

} // namespace

TEST_F(ShortcutValidatorTest, WhatIsNeededForTypingIsRefusedUnlessItIsInForceInTheLauncherOnly)
{
    for (const char* const text :
         {"a", "Shift+7", "Space", "Shift+Return", "Left", "Keypad5", "Backspace", "Delete", "Escape", "Ö", "Ł"}) {
        const auto refused = refusal(text);
        ASSERT_TRUE(refused) << text;
        EXPECT_EQ(refused->reason, Reason::disallowed);
        EXPECT_TRUE(refused->message.startsWith(keys(text).displayText())) << qPrintable(refused->message);
        EXPECT_FALSE(refused->canForce);
    }
    for (const char* const text :
         {"F9", "Pause", "MediaRecord", "MicrophoneMute", "Shift+F3", "Ctrl+Alt+A", "Alt+Space", "Super+Left"})
        EXPECT_FALSE(refusal(text)) << text;
    EXPECT_FALSE(refusal("a", Name::stopRecordingAndCloseModal));
}

TEST_F(ShortcutValidatorTest, WhatTheDesktopUsesIsRefusedWithWhatItDoesThere)
{
    const auto superL = keys("Super+L");
    desktop_.shortcuts = {{.keyCode = static_cast<std::uint32_t>(superL.carbonKeyCode),
                           .modifiers = static_cast<std::uint32_t>(superL.carbonModifiers),
                           .action = QStringLiteral("Lock the screen")}};
    auto refused = refusal("Super+L");
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->reason, Reason::usedBySystem);
    EXPECT_TRUE(refused->message.contains(QStringLiteral("Super+L"))) << qPrintable(refused->message);
    EXPECT_TRUE(refused->message.contains(QStringLiteral("Lock the screen")));
    EXPECT_FALSE(refused->advice.isEmpty());
    EXPECT_TRUE(refused->canForce) << "the desktop does not hold it at the moment";

    hotKeys_.refuse({static_cast<std::uint32_t>(superL.carbonKeyCode), Modifier::control}, QStringLiteral("taken"));
    refused = refusal("Super+L");
    EXPECT_FALSE(refused->canForce) << "it could not work";
    const auto f2 = keys("Ctrl+Alt+F2");
    desktop_.reserved = DesktopShortcut{.keyCode = static_cast<std::uint32_t>(f2.carbonKeyCode),
                                        .modifiers = static_cast<std::uint32_t>(f2.carbonModifiers),
                                        .action = QStringLiteral("Another console")};
    EXPECT_EQ(refusal("Ctrl+Alt+F2")->reason, Reason::usedBySystem);
    EXPECT_FALSE(refusal("Ctrl+Alt+F2")->canForce);

    hotKeys_.refuse({2, Modifier::command | Modifier::option}, QStringLiteral("taken by a program"));
    refused = refusal("Ctrl+Alt+D");
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->reason, Reason::usedBySystem);
    EXPECT_EQ(refused->message, QStringLiteral("taken by a program"));
    EXPECT_FALSE(refused->canForce);
    EXPECT_EQ(hotKeys_.count(), 0U) << "trying leaves nothing behind";
}

TEST_F(ShortcutValidatorTest, WhatTheProgramUsesItselfIsRefusedAndMayBeForced)
{
    shortcuts_.setShortcut(Name::openModal, keys("Ctrl+Alt+D"));
    EXPECT_FALSE(refusal("Ctrl+Alt+D")) << "it is this name's own";
    for (const char* const text : {"Ctrl+Alt+D", "Escape", "1", "9"}) {
        const auto refused = refusal(text, Name::stopRecordingAndCloseModal);
        ASSERT_TRUE(refused) << text;
        EXPECT_EQ(refused->reason, Reason::usedByMenuItem) << text;
        EXPECT_TRUE(refused->canForce);
    }
    for (const char* const text : {"0", "Shift+1", "Return", "Space"})
        EXPECT_FALSE(refusal(text, Name::stopRecordingAndCloseModal)) << text;
}

TEST_F(ShortcutValidatorTest, WhatPastesIsRefusedAndWhatEditsIsWarnedOf)
{
    for (const char* const text : {"Ctrl+V", "Ctrl+Shift+V", "Shift+Insert"}) {
        const auto refused = refusal(text);
        ASSERT_TRUE(refused) << text;
        EXPECT_EQ(refused->reason, Reason::edits);
        EXPECT_FALSE(refused->canForce) << text << ": each text delivered would start a recording";
    }
    for (const char* const text : {"Ctrl+C", "Ctrl+X", "Ctrl+Z", "Ctrl+Insert"}) {
        const auto refused = refusal(text);
        ASSERT_TRUE(refused) << text;
        EXPECT_EQ(refused->reason, Reason::edits);
        EXPECT_TRUE(refused->canForce) << text;
    }
    EXPECT_FALSE(refusal("Ctrl+V", Name::stopRecordingAndCloseModal)) << "in force only while one speaks";
    EXPECT_FALSE(refusal("Ctrl+Alt+V"));
}
