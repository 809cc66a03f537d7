#include "vantro/cli/LogsCommand.h"

#include "platform/SystemLog.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/Terminal.h"

#include <QCommandLineParser>

namespace vantro {

namespace {

constexpr char description[] =
    R"(What vantro has logged, oldest first, from the system's journal.

Exit status: 0 done, 2 wrong usage, 4 there is no journal: start vantro in a terminal to see what it logs.)";

} // namespace

int runLogs(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    terminal::addHelpOption(parser);
    parser.addOption({QStringLiteral("follow"), QStringLiteral("Go on with what is logged from now on.")});
    parser.addOption({QStringLiteral("since"),
                      QStringLiteral("Leave out what is older, for example \"-1h\" or \"today\"."),
                      QStringLiteral("TIME")});
    if (!parser.parse(QStringList{QStringLiteral("vantro logs")} + arguments) ||
        !parser.positionalArguments().isEmpty()) {
        terminal::writeError(QStringLiteral("wrong usage (see vantro logs --help)"));
        return ExitCode::usage;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        terminal::writeLine(terminal::helpText(parser, QStringLiteral("logs")));
        return ExitCode::done;
    }
    if (!systemlog::isPresent()) {
        terminal::writeError(
            QStringLiteral("logs: this system has no journal: start vantro in a terminal to see what it logs"));
        return ExitCode::noService;
    }
    terminal::writeError(QStringLiteral("logs: ") + systemlog::read(parser.value(QStringLiteral("since")),
                                                                    parser.isSet(QStringLiteral("follow"))));
    return ExitCode::noService;
}

} // namespace vantro
