#include "vantro/cli/LogsCommand.h"

#include "platform/linux/journal/Journal.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/Terminal.h"

#include <QCommandLineParser>
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
    if (!journal::isPresent()) {
        terminal::writeError(
            QStringLiteral("logs: this system has no journal: start vantro in a terminal to see what it logs"));
        return ExitCode::noService;
    }
    QList<QByteArray> command{"journalctl", "--identifier=vantro", "--output=short-iso"};
    if (parser.isSet(QStringLiteral("follow")))
        command << "--follow";
    if (parser.isSet(QStringLiteral("since")))
        command << "--since=" + parser.value(QStringLiteral("since")).toLocal8Bit();
    std::vector<char*> argv;
    for (QByteArray& argument : command)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    execvp(argv.front(), argv.data());
    terminal::writeError(
        QStringLiteral("logs: journalctl could not be started: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
    return ExitCode::noService;
}

} // namespace vantro
