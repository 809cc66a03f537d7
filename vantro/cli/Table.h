#pragma once

#include <QStringList>

#include <vector>

namespace vantro::terminal {

/// Writes rows of equal length to standard output: columns of equal width for a person, the first row being their
/// titles; tabs between the fields and no titles for a program.
void writeTable(const std::vector<QStringList>& rows);

} // namespace vantro::terminal
