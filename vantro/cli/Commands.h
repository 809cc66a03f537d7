#pragma once

#include "vantro/cli/Command.h"

namespace vantro {

/// All commands, in the order of the help. @p modelHost: the value of --model-host; may be empty.
std::vector<Command> allCommands(const QString& modelHost);

Command transcribeCommand();
Command modelsCommand(const QString& modelHost);
Command devicesCommand();
Command shortcutsCommand();
Command modesCommand();
Command replacementsCommand();
Command vocabularyCommand();
Command providersCommand();
Command applicationsCommand();
Command cleaningCommand();
Command rewriteCommand();
Command historyCommand();
Command lastCommand();
Command notesCommand();
/// "toggle", "start", "stop" and others, which control the running program over D-Bus.
std::vector<Command> controlCommands();
Command settingsCommand();
Command retryCommand();
Command logsCommand();

} // namespace vantro
