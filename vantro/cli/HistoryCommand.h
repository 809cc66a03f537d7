#pragma once

#include <QStringList>

namespace vantro {

/// "vantro history [list | show | delete | export]": what was dictated. @p arguments: what follows the command's name.
/// Answers the process's exit code.
int runHistory(const QStringList& arguments);

} // namespace vantro
