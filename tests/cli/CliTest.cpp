#include "vantro/cli/Captions.h"
#include "vantro/cli/CommandLine.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/Completion.h"
#include "vantro/cli/ExitCode.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace vantro;

TEST(Captions, EndWithSentencesAtPausesAndBeforeTheyAreTooLong)
{
    const auto at = [](const char* piece, double start, double end) {
        return TranscribedToken{QString::fromUtf8(piece), std::chrono::duration<double>(start),
                                std::chrono::duration<double>(end), 1};
    };
    std::vector<TranscribedToken> tokens{at("\u2581One", 0, 0.4), at(".", 0.4, 0.5),       at("\u2581Tw", 0.6, 0.8),
                                         at("o", 0.8, 1),         at("\u2581later", 3, 4), at("\u2581", 4, 4)};
    for (int second = 4; second < 16; ++second)
        tokens.push_back(at("\u2581word", second, second + 1));
    const auto captions = captionsFrom(tokens);
    ASSERT_EQ(captions.size(), 4U);
    EXPECT_EQ(captions[0].text, QStringLiteral("One."));
    EXPECT_EQ(captions[1].text, QStringLiteral("Two"));
    EXPECT_TRUE(captions[2].text.startsWith(QStringLiteral("later word")));
    EXPECT_EQ(captions.back().end, std::chrono::seconds(16));
    EXPECT_EQ(subRip({{std::chrono::milliseconds(3'723'004), std::chrono::seconds(3724), QStringLiteral("Hi")}}),
              QStringLiteral("1\n01:02:03,004 --> 01:02:04,000\nHi\n\n"));
    EXPECT_EQ(webVtt({{std::chrono::milliseconds(4), std::chrono::seconds(1), QStringLiteral("Hi")}}),
              QStringLiteral("WEBVTT\n\n00:00:00.004 --> 00:00:01.000\nHi\n\n"));
}

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
