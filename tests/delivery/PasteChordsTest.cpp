#include "vantro/delivery/PasteChords.h"

#include "base/Settings.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace vantro;
using Chord = KeyEventPoster::PasteChord;

TEST(PasteChords, TheChordComesFromTheWindowClassAndTheUsersTable)
{
    const QTemporaryDir folder;
    UserDefaults defaults(folder.filePath(QStringLiteral("vantro.ini")));
    const auto chord = [&](const QStringList& windowClass) {
        return pasteChordFor(windowClass, defaults);
    };
    const auto names = [](const char* className, const char* instance) {
        return QStringList{QString::fromLatin1(className), QString::fromLatin1(instance)};
    };
    EXPECT_EQ(chord({}), Chord::ControlV);
    EXPECT_EQ(chord(names("Mousepad", "mousepad")), Chord::ControlV);
    EXPECT_EQ(chord(names("Gnome-terminal", "gnome-terminal-server")), Chord::ControlShiftV);
    EXPECT_EQ(chord(names("kitty", "kitty")), Chord::ControlShiftV);
    EXPECT_EQ(chord(names("XTerm", "uxterm")), Chord::ShiftInsert);
    EXPECT_EQ(chord(names("XTerm", "a title of its own")), Chord::ShiftInsert);
    EXPECT_EQ(chord(names("Emacs", "emacs")), Chord::ShiftInsert);

    defaults.set(setting::pasteChords, R"({"Mousepad":"shift + insert","xterm":"Ctrl+Shift+V","kitty":"Ctrl+P"})");
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(chord(names("kitty", "kitty")), Chord::ControlShiftV) << "an unknown keystroke changes nothing";
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), ::testing::HasSubstr("kitty"));
    EXPECT_EQ(chord(names("Mousepad", "mousepad")), Chord::ShiftInsert);
    EXPECT_EQ(chord(names("XTerm", "xterm")), Chord::ControlShiftV);

    defaults.set(setting::pasteChords, "no json");
    EXPECT_EQ(chord(names("XTerm", "xterm")), Chord::ShiftInsert);
}
