#pragma once

#include <QStringList>

namespace vantro {

/// "vantro models [list | download | select | verify | remove | clear]": the speech models on this machine.
/// @p arguments: what follows the command's name; @p modelHost: the option's value, empty when it was not given.
/// Answers the process's exit code.
int runModels(const QStringList& arguments, const QString& modelHost);

} // namespace vantro
