#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace vantro::terminal {

/// Whether a person reads standard output / standard error.
bool outputIsTerminal();
bool errorIsTerminal();
/// Whether a person can answer: standard input and standard error are a terminal.
bool canAsk();
/// Columns of the terminal behind standard output, 80 when it does not tell.
int outputWidth();

/// One line on standard output.
void writeLine(const QString& line);
void writeJson(const QJsonObject& object);
void writeJson(const QJsonArray& array);
/// Puts @p question and reads the answer; false for all that is no yes.
bool ask(const QString& question);
/// A text from elsewhere as one line that cannot steer a terminal: control characters and line breaks become blanks.
QString singleLine(const QString& text);
/// The same, but its lines stay.
QString printable(const QString& text);
/// Cut to @p columns, with a mark where something is missing.
QString elided(const QString& text, qsizetype columns);
/// "vantro: " and the text, on standard error.
void writeError(const QString& text);
/// One line on standard error, as it is.
void writeMessage(const QString& line);
/// A bar of @p cells, the first @p filled of them filled; in plain letters where the locale knows no others.
QString bar(int filled, int cells);
/// Replaces the current line of standard error when a person reads it; an empty text clears it. Otherwise nothing.
void showProgress(const QString& text);

/// Rows of equal length, the first being their titles: columns of equal width for a person; tabs between the fields and
/// no titles for a program.
void writeTable(const std::vector<QStringList>& rows);
/// A line of standard input without its line break. On a terminal @p prompt is shown, on standard error, and what is
/// typed is not; nothing when it is empty.
std::optional<QString> readSecret(const QString& prompt);
bool inputIsTerminal();

} // namespace vantro::terminal
