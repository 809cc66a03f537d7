#include "vantro/cli/CommandLine.h"

#include "platform/KeyCode.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/Completion.h"
#include "vantro/cli/HelpText.h"
#include "vantro/cli/Terminal.h"
#include "vantro/models/ModelHost.h"

#include <algorithm>
#include <iterator>

namespace vantro {

namespace {

constexpr const char* usageText =
    QT_TRANSLATE_NOOP("Command", R"(Usage: vantro [--shortcut KEYS] [--model-host URL] [--verbose]
       vantro COMMAND [OPTION...]

Without a command, vantro starts and waits for its shortcut: press it, speak, press
Space, and the text appears in the window you were working in. Escape cancels.

Options:
  --shortcut KEYS   Use this shortcut from now on, for example Ctrl+Alt+D.
  --model-host URL  Download speech models from there (http, https or file) instead of the public repository.
                    VANTRO_MODEL_HOST does the same.
  --verbose         Log in detail to standard error.
  --help            Show this help; after a command, that of the command.
  --version         Show the version.

Commands:
)");

constexpr const char* exitStatusText = QT_TRANSLATE_NOOP("Command", R"(
Exit status: 0 done, 1 failed, 2 wrong usage, 3 not found, 4 no service (sound,
model, network, keys), 5 the settings cannot be written.)");

/// A command with its summary in column 23; a long name gets a line of its own.
QString helpLine(const Command& command)
{
    constexpr int column = 22;
    const QString name = QStringLiteral("  %1 %2").arg(QLatin1String(command.name), command.synopsis()).trimmed();
    const QString line = QStringLiteral("  ") + name;
    const QString summary = wrapped(QString(column, QLatin1Char(' ')) + Command::tr(command.summary), column);
    return (line.size() < column ? line + summary.mid(line.size()) : line + QLatin1Char('\n') + summary) +
           QLatin1Char('\n');
}

QString helpText(const std::vector<Command>& commands)
{
    QString text = reflowed(Command::tr(usageText));
    for (const Command& command : commands)
        text += helpLine(command);
    return text + reflowed(Command::tr(exitStatusText));
}

/// For the shells: a candidate and its description in each line. "--" parts the words from options of this program.
int complete(const std::vector<Command>& commands, QStringList words)
{
    words.removeOne(QStringLiteral("--"));
    QStringList lines;
    for (const Candidate& candidate : completions(commands, words))
        lines << candidate.text + QLatin1Char('\t') + candidate.description.section(QLatin1Char('\n'), 0, 0);
    if (!lines.isEmpty())
        terminal::writeLine(lines.join(QLatin1Char('\n')));
    return ExitCode::done;
}

} // namespace

CommandLine::CommandLine(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        arguments_ << QString::fromLocal8Bit(argv[i]);
    isVerbose_ = arguments_.removeAll(QStringLiteral("--verbose")) > 0;
    takeModelHost();
    if (usageError_ != nullptr)
        return;
    if (!arguments_.isEmpty() && !arguments_.first().startsWith(QLatin1Char('-')))
        command_ = arguments_.takeFirst();
    else
        takeProgramOptions();
}

void CommandLine::refuse(const QString& option, const char* reason, const QString& value)
{
    command_ = option;
    usageError_ = reason;
    refusedValue_ = value;
}

/// Stands anywhere, before or after a command.
void CommandLine::takeModelHost()
{
    const QString option = QStringLiteral("--model-host");
    for (qsizetype i = 0; i < arguments_.size(); ++i) {
        const bool isJoined = arguments_[i].startsWith(option + QLatin1Char('='));
        if (!isJoined && arguments_[i] != option)
            continue;
        const QString argument = arguments_.takeAt(i);
        if (isJoined)
            options_.modelHost = argument.mid(option.size() + 1);
        else
            options_.modelHost = i < arguments_.size() ? arguments_.takeAt(i) : QString();
        if (!ModelHost::usable(options_.modelHost))
            refuse(option,
                   QT_TRANSLATE_NOOP("Command",
                                     "\"%1\" is not a model host: use an address that starts with http:, https: or "
                                     "file:"),
                   options_.modelHost);
        return;
    }
}

void CommandLine::takeProgramOptions()
{
    while (!arguments_.isEmpty()) {
        QString option = arguments_.takeFirst();
        QString value;
        if (const auto equals = option.indexOf(QLatin1Char('=')); equals > 0) {
            value = option.mid(equals + 1);
            option.truncate(equals);
        }
        if (option == QLatin1String("--shortcut")) {
            if (value.isEmpty() && !arguments_.isEmpty())
                value = arguments_.takeFirst();
            options_.shortcut = value;
            if (!parseShortcut(value)) {
                refuse(option,
                       QT_TRANSLATE_NOOP("Command",
                                         "\"%1\" is not a shortcut: name modifiers and a key, for example Ctrl+Alt+D"),
                       value);
                return;
            }
        } else {
            command_ = option;
            return;
        }
    }
}

int CommandLine::run() const
{
    const int exitCode = runCommand();
    if (exitCode != ExitCode::done || !terminal::hasOutputFailed())
        return exitCode;
    terminal::writeError(Command::tr("Cannot write to standard output"));
    return ExitCode::failed;
}

int CommandLine::runCommand() const
{
    if (usageError_ != nullptr) {
        terminal::writeError(Command::tr(usageError_).arg(refusedValue_));
        return ExitCode::usage;
    }
    const std::vector<Command> commands = allCommands(options_.modelHost);
    if (command_ == QLatin1String("--help") || command_ == QLatin1String("-h") || command_ == QLatin1String("help")) {
        terminal::writeLine(helpText(commands));
        return ExitCode::done;
    }
    if (command_ == QLatin1String("--version")) {
        terminal::writeLine(QStringLiteral("vantro " VANTRO_VERSION));
        return ExitCode::done;
    }
    if (command_ == QLatin1String("complete"))
        return complete(commands, arguments_);
    const auto command =
        std::ranges::find_if(commands, [this](const Command& c) { return command_ == QLatin1String(c.name); });
    if (command != commands.end())
        return command->run(arguments_);
    terminal::writeError((command_.startsWith(QLatin1Char('-'))
                              ? Command::tr("unknown option \"%1\" (see vantro --help)")
                              : Command::tr("unknown command \"%1\" (see vantro --help)"))
                             .arg(command_));
    return ExitCode::usage;
}

std::vector<Command> allCommands(const QString& modelHost)
{
    std::vector<Command> commands{
        transcribeCommand(), modelsCommand(modelHost), devicesCommand(),    shortcutsCommand(),    settingsCommand(),
        modesCommand(),      replacementsCommand(),    vocabularyCommand(), applicationsCommand(), cleaningCommand(),
        rewriteCommand(),    providersCommand(),       historyCommand(),    lastCommand(),         notesCommand()};
    std::ranges::move(controlCommands(), std::back_inserter(commands));
    commands.push_back(retryCommand());
    commands.push_back(logsCommand());
    return commands;
}

} // namespace vantro
