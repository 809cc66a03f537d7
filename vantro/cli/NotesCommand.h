#pragma once

#include <QStringList>

namespace vantro {

/// "vantro notes [list | show | add | delete | summarize]": the notes of each day. @p arguments: what follows the
/// command's name. Answers the process's exit code.
int runNotes(const QStringList& arguments);

} // namespace vantro
