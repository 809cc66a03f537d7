#pragma once

#include "vantro/cli/Command.h"

namespace vantro {

/// In the order in which the help tells of them. @p modelHost: the value of --model-host, empty without it.
std::vector<Command> allCommands(const QString& modelHost);

Command transcribeCommand();
Command modelsCommand(const QString& modelHost);
Command devicesCommand();
Command shortcutsCommand();
Command modesCommand();
Command replacementsCommand();
Command vocabularyCommand();
Command providersCommand();
Command historyCommand();
Command notesCommand();
/// "toggle", "start", "stop", "cancel" and "status": they steer the running program over the session bus.
std::vector<Command> controlCommands();
Command logsCommand();

} // namespace vantro
