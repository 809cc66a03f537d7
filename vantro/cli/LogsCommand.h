#pragma once

#include <QStringList>

namespace vantro {

/// "vantro logs [--follow] [--since TIME]": what the program has written into the system's journal. Becomes the
/// journal's own reader; answers the process's exit code when that cannot be.
int runLogs(const QStringList& arguments);

} // namespace vantro
