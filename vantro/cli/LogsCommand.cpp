#include "platform/linux/journal/Journal.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/Terminal.h"

#include <QFile>

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace vantro {

namespace {

constexpr char description[] =
    R"(What vantro has logged, oldest first, from the system's journal.

Exit status: 0 done, 2 wrong usage, 4 there is no journal: start vantro in a terminal to see what it logs.)";

int show(const CommandCall& call)
{
    if (!journal::isPresent()) {
        terminal::writeError(
            QStringLiteral("logs: this system has no journal: start vantro in a terminal to see what it logs"));
        return ExitCode::noService;
    }
    QList<QByteArray> command{"journalctl", "--identifier=vantro", "--output=short-iso"};
    if (call.has("follow"))
        command << "--follow";
    if (call.has("since"))
        command << "--since=" + call.value("since").toLocal8Bit();
    std::vector<char*> argv;
    for (QByteArray& argument : command)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    execvp(argv.front(), argv.data());
    terminal::writeError(
        QStringLiteral("logs: journalctl could not be started: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
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
