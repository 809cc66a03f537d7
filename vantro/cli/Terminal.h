#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace vantro::terminal {

/// Whether standard output / standard error is a terminal.
bool outputIsTerminal();
bool errorIsTerminal();
/// Whether questions can be asked: standard input and standard error are terminals.
bool canAsk();
/// Columns of the terminal on standard output; 80 if unknown.
int outputWidth();

/// Whether something that was to be written to standard output could not be.
bool hasOutputFailed();
/// Writes a line to standard output.
void writeLine(const QString& line);
void writeJson(const QJsonObject& object);
void writeJson(const QJsonArray& array);
/// Asks @p question on standard error; false unless the answer is yes.
bool ask(const QString& question);
/// Returns untrusted text as one line that cannot control the terminal: control characters become spaces.
QString singleLine(const QString& text);
/// The same, but keeps line breaks.
QString printable(const QString& text);
/// Cuts the text to @p columns with an ellipsis.
QString elided(const QString& text, qsizetype columns);
/// Writes "vantro: " and the text to standard error.
void writeError(const QString& text);
/// Writes a line to standard error unchanged.
void writeMessage(const QString& line);
/// A bar of @p cells characters, the first @p filled of them filled; in ASCII unless the locale is UTF-8.
QString bar(int filled, int cells);
/// Replaces the current line of standard error if that is a terminal; an empty text clears it.
void showProgress(const QString& text);

/// Whether a terminal is to show colours: unless NO_COLOR is set or it is dumb.
bool wantsColour();
/// @p text in bold where standard output is a terminal that wants it.
QString bold(const QString& text);

/// Writes rows of equal length, the first of which are the titles: aligned on a terminal, no wider than it, otherwise
/// separated by tabs and without titles.
void writeTable(const std::vector<QStringList>& rows);
/// Reads a line of standard input; nullopt when it is empty. On a terminal, shows @p prompt on standard error and hides
/// the input.
std::optional<QString> readSecret(const QString& prompt);
bool inputIsTerminal();

} // namespace vantro::terminal
