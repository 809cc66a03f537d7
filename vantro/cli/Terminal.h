#pragma once

#include <QString>

namespace vantro::terminal {

/// Whether a person reads standard output / standard error.
bool outputIsTerminal();
bool errorIsTerminal();

/// One line on standard output.
void writeLine(const QString& line);
/// "vantro: " and the text, on standard error.
void writeError(const QString& text);
/// Replaces the current line of standard error when a person reads it; an empty text clears it. Otherwise nothing.
void showProgress(const QString& text);

} // namespace vantro::terminal
