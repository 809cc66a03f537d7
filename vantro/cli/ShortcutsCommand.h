#pragma once

#include <QStringList>

namespace vantro {

/// "vantro shortcuts [show | set NAME KEYS | test NAME | clear NAME | mode press|hold]".
/// @p arguments: what follows the command's name. Answers the process's exit code.
int runShortcuts(const QStringList& arguments);

} // namespace vantro
