#include "vantro/cli/CommandLine.h"

#include "platform/KeyCode.h"
#include "vantro/cli/ControlCommands.h"
#include "vantro/cli/DevicesCommand.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/HistoryCommand.h"
#include "vantro/cli/LogsCommand.h"
#include "vantro/cli/ModelsCommand.h"
#include "vantro/cli/ModesCommand.h"
#include "vantro/cli/NotesCommand.h"
#include "vantro/cli/ProvidersCommand.h"
#include "vantro/cli/ShortcutsCommand.h"
#include "vantro/cli/Terminal.h"
#include "vantro/cli/TranscribeCommand.h"
#include "vantro/cli/VocabularyCommands.h"
#include "vantro/models/ModelHost.h"

#include <QHash>

namespace vantro {

namespace {

const char helpText[] =
    R"(Usage: vantro [--shortcut KEYS] [--model-host URL] [--verbose]
       vantro COMMAND [OPTION...]

Without a command vantro starts and waits for its shortcut: press it, speak, press
Space, and the text stands in the window you were working in. Escape cancels.

Options:
  --shortcut KEYS  Use this shortcut from now on, for example Ctrl+Alt+D.
  --model-host URL Fetch speech models from there (http, https or file) instead of the
                   public repository. VANTRO_MODEL_HOST does the same.
  --verbose        Log what happens, in detail, to standard error.
  --help           Show this text; after a command, the command's own.
  --version        Show the version.

Commands:
  transcribe FILE...  Write the text of recordings to standard output.
  models [ACTION]     List, download, select, verify or remove speech models.
  devices [ACTION]    List microphones, choose one, or rank them.
  shortcuts [ACTION]  Show, set, test and clear the shortcuts; press or hold to talk.
  modes [ACTION]      Show and set what becomes of a dictation: prompts, names, language models.
  replacements [ACTION]
                      Show and edit what is written instead of what.
  vocabulary [ACTION] Show and edit the words that the engine is told of.
  providers [ACTION]  List, add, edit, remove or test language models that rewrite texts.
  history [ACTION]    List, search, show, delete or export what was dictated.
  notes [ACTION]      List, show, add or delete notes.
  toggle              Start a dictation, or end and transcribe the running one.
  start, stop         Open the launcher and record; end the recording.
  cancel              Discard the dictation.
  status              Tell what the running program is doing.
  logs                Show what the program has logged.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 not found, 4 no service (sound,
model, network, keys).)";

using Command = int (*)(const QStringList& arguments);

const QHash<QString, Command>& commands()
{
    static const QHash<QString, Command> commands{
        {QStringLiteral("devices"), runDevices},
        {QStringLiteral("history"), runHistory},
        {QStringLiteral("logs"), runLogs},
        {QStringLiteral("modes"), runModes},
        {QStringLiteral("notes"), runNotes},
        {QStringLiteral("providers"), runProviders},
        {QStringLiteral("replacements"), runReplacements},
        {QStringLiteral("shortcuts"), runShortcuts},
        {QStringLiteral("transcribe"), runTranscribe},
        {QStringLiteral("vocabulary"), runVocabulary},
    };
    return commands;
}

bool isControlCommand(const QString& command)
{
    static const QStringList commands{QStringLiteral("toggle"), QStringLiteral("start"), QStringLiteral("stop"),
                                      QStringLiteral("cancel"), QStringLiteral("status")};
    return commands.contains(command);
}

} // namespace

CommandLine::CommandLine(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        arguments_ << QString::fromLocal8Bit(argv[i]);
    isVerbose_ = arguments_.removeAll(QStringLiteral("--verbose")) > 0;
    takeModelHost();
    if (!usageError_.isEmpty())
        return;
    if (!arguments_.isEmpty() && !arguments_.first().startsWith(QLatin1Char('-')))
        command_ = arguments_.takeFirst();
    else
        takeProgramOptions();
}

void CommandLine::refuse(const QString& option, const QString& reason)
{
    command_ = option;
    usageError_ = reason;
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
            refuse(option, QStringLiteral("\"%1\" is no model host: give an address that begins with http:, https: or "
                                          "file:")
                               .arg(options_.modelHost));
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
                refuse(option, QStringLiteral("\"%1\" is no shortcut: name modifiers and a key, for example Ctrl+Alt+D")
                                   .arg(value));
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
    if (!usageError_.isEmpty()) {
        terminal::writeError(usageError_);
        return ExitCode::usage;
    }
    if (command_ == QLatin1String("--help") || command_ == QLatin1String("-h") || command_ == QLatin1String("help")) {
        terminal::writeLine(QLatin1String(helpText));
        return ExitCode::done;
    }
    if (command_ == QLatin1String("--version")) {
        terminal::writeLine(QStringLiteral("vantro " VANTRO_VERSION));
        return ExitCode::done;
    }
    if (command_ == QLatin1String("models"))
        return runModels(arguments_, options_.modelHost);
    if (const Command command = commands().value(command_, nullptr))
        return command(arguments_);
    if (isControlCommand(command_))
        return runControl(command_, arguments_);
    terminal::writeError(
        QStringLiteral("unknown %1 \"%2\" (see vantro --help)")
            .arg(command_.startsWith(QLatin1Char('-')) ? QStringLiteral("option") : QStringLiteral("command"),
                 command_));
    return ExitCode::usage;
}

} // namespace vantro
