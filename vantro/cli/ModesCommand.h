#pragma once

#include <QStringList>

namespace vantro {

/// "vantro modes": prompts, names and language models of the processing modes. Answers an ExitCode.
int runModes(const QStringList& arguments);

} // namespace vantro
