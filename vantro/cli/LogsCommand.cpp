#include "platform/SystemLog.h"
#include "vantro/cli/Commands.h"

namespace vantro {

namespace {

constexpr const char* description =
    QT_TRANSLATE_NOOP("Command", R"(The log of vantro from the system journal, oldest first.

Exit status: 0 done, 2 wrong usage, 4 there is no journal: start vantro in a terminal to see its log.)");

int show(const CommandCall& call)
{
    const QString problem = systemlog::isPresent()
                                ? systemlog::read(call.value("since"), call.has("follow"))
                                : Command::tr("this system has no journal: start vantro in a terminal to see its log");
    throw CommandError(ExitCode::noService, QStringLiteral("logs: ") + problem);
}

} // namespace

Command logsCommand()
{
    return {.name = "logs",
            .summary = QT_TRANSLATE_NOOP("Command", "Show the log of the program."),
            .description = description,
            .actions = {{"", show}},
            .options = {{"follow", QT_TRANSLATE_NOOP("Command", "Keep printing new entries.")},
                        {"since", QT_TRANSLATE_NOOP("Command", "Skip older entries; for example \"-1h\" or \"today\"."),
                         "TIME"}}};
}

} // namespace vantro
