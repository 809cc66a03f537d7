#include "platform/SystemLog.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/Terminal.h"

namespace vantro {

namespace {

constexpr char description[] =
    R"(What vantro has logged, oldest first, from the system's journal.

Exit status: 0 done, 2 wrong usage, 4 there is no journal: start vantro in a terminal to see what it logs.)";

int show(const CommandCall& call)
{
    if (!systemlog::isPresent()) {
        terminal::writeError(
            QStringLiteral("logs: this system has no journal: start vantro in a terminal to see what it logs"));
        return ExitCode::noService;
    }
    terminal::writeError(QStringLiteral("logs: ") + systemlog::read(call.value("since"), call.has("follow")));
    return ExitCode::noService;
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
