#pragma once

#include <QStringList>

namespace vantro {

/// "vantro transcribe FILE...": the text of recordings on standard output, through the same facade as a dictation.
/// @p arguments: what follows the command's name. Answers the process's exit code.
int runTranscribe(const QStringList& arguments);

} // namespace vantro
