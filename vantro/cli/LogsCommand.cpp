#include "platform/SystemLog.h"
#include "vantro/cli/Commands.h"

namespace vantro {

namespace {

constexpr char description[] =
    R"(What vantro has logged, oldest first, from the system's journal.

Exit status: 0 done, 2 wrong usage, 4 there is no journal: start vantro in a terminal to see what it logs.)";

int show(const CommandCall& call)
{
    const QString problem =
        systemlog::isPresent()
            ? systemlog::read(call.value("since"), call.has("follow"))
            : QStringLiteral("this system has no journal: start vantro in a terminal to see what it logs");
    throw CommandError(ExitCode::noService, QStringLiteral("logs: ") + problem);
}

} // namespace

Command logsCommand()
{
    return {.name = "logs",
            .summary = "Show what the program has logged.",
            .description = description,
            .actions = {{"", show}},
            .options = {{"follow", "Go on with what is logged from now on."},
                        {"since", "Leave out what is older, for example \"-1h\" or \"today\".", "TIME"}}};
}

} // namespace vantro
