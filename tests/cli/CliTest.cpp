#include "vantro/cli/CommandLine.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/Completion.h"
#include "vantro/cli/ExitCode.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace vantro;

TEST(CommandLine, TellsTheProgramFromACommand)
{
    const auto parse = [](std::vector<const char*> words) {
        words.insert(words.begin(), "vantro");
        return CommandLine(static_cast<int>(words.size()), const_cast<char**>(words.data()));
    };
    EXPECT_TRUE(parse({}).startsProgram());
    const auto withShortcut = parse({"--verbose", "--shortcut", "ctrl+alt+d"});
    EXPECT_TRUE(withShortcut.startsProgram());
    EXPECT_TRUE(withShortcut.isVerbose());
    EXPECT_EQ(withShortcut.programOptions().shortcut, QStringLiteral("ctrl+alt+d"));
    EXPECT_EQ(parse({"--shortcut=Super+Space"}).programOptions().shortcut, QStringLiteral("Super+Space"));

    for (const auto& wrong :
         {parse({"--shortcut", "Hyper+Q"}), parse({"--shortcut"}), parse({"--nonsense"}), parse({"trancsribe"}),
          parse({"transcribe"}), parse({"transcribe", "--nonsense", "a.wav"}), parse({"toggle", "now"}),
          parse({"devices", "dance"}), parse({"devices", "use"}), parse({"devices", "mode", "loud"}),
          parse({"devices", "priority", "move", "x"}), parse({"shortcuts", "set", "open"}),
          parse({"shortcuts", "clear", "everything"}), parse({"shortcuts", "mode", "long"}),
          parse({"providers", "nonsense"}), parse({"providers", "edit"}), parse({"providers", "list", "all"})}) {
        EXPECT_FALSE(wrong.startsProgram());
        EXPECT_EQ(wrong.run(), ExitCode::usage);
    }
}

/// A command that is renamed would otherwise lose its names in silence.
TEST(Completion, NamesAreOfferedAtPlacesThatExist)
{
    const std::vector<Command> commands = allCommands({});
    for (const QString& place : completedPlaces()) {
        const QString last = place.section(QLatin1Char(' '), -1);
        const QString before = place.section(QLatin1Char(' '), 0, -2);
        const auto offered = completions(commands, before.isEmpty() ? QStringList{last} : QStringList{before, last});
        EXPECT_TRUE(std::ranges::any_of(offered, [&](const Candidate& candidate) { return candidate.text == last; }))
            << qPrintable(place);
    }
}
