#pragma once

#include <QStringList>

namespace vantro {

/// "vantro devices [list | watch | mode | use | priority | bluetooth]": the microphones and which one is recorded.
/// @p arguments: what follows the command's name. Answers the process's exit code.
int runDevices(const QStringList& arguments);

} // namespace vantro
