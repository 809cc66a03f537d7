#pragma once

#include <QStringList>

namespace vantro {

/// "vantro providers [list | add | edit | remove | test]": the language models that rewrite dictations.
/// @p arguments: what follows the command's name. Answers the process's exit code.
int runProviders(const QStringList& arguments);

} // namespace vantro
