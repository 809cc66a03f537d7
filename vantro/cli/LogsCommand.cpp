#include "platform/SystemLog.h"
#include "vantro/cli/Commands.h"

namespace vantro {

namespace {

constexpr char description[] =
    R"(The log of vantro from the system journal, oldest first.

Exit status: 0 done, 2 wrong usage, 4 there is no journal: start vantro in a terminal to see its log.)";

int show(const CommandCall& call)
{
    const QString problem =
        systemlog::isPresent()
            ? systemlog::read(call.value("since"), call.has("follow"))
            : QStringLiteral("this system has no journal: start vantro in a terminal to see its log");
    throw CommandError(ExitCode::noService, QStringLiteral("logs: ") + problem);
}

} // namespace

Command logsCommand()
{
    return {.name = "logs",
            .summary = "Show the log of the program.",
            .description = description,
            .actions = {{"", show}},
            .options = {{"follow", "Keep printing new entries."},
                        {"since", "Skip older entries; for example \"-1h\" or \"today\".", "TIME"}}};
}

} // namespace vantro
