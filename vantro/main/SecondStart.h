#pragma once

#include <QStringList>

namespace vantro {

class SoleInstance;

/// The end of a program that was started while another one runs: has that one do what this one was started for, over
/// whatever both can reach, and says where it is. Answers the exit code.
int endSecondStart(const SoleInstance& other, const QStringList& arguments);

} // namespace vantro
