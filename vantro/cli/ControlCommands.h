#pragma once

#include <QString>
#include <QStringList>

namespace vantro {

/// "vantro toggle | start | stop | cancel | status": steers the running program over the session bus.
/// Answers the process's exit code.
int runControl(const QString& command, const QStringList& arguments);

} // namespace vantro
