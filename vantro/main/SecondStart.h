#pragma once

#include <QStringList>

namespace vantro {

class SoleInstance;

/// Ends a second start of the program: passes its arguments to the running instance, over D-Bus or the socket, and
/// prints where that runs. Returns the exit code.
int endSecondStart(const SoleInstance& other, const QStringList& arguments);

} // namespace vantro
