#pragma once

#include <QString>

namespace vantro {

/// An answer without what is certainly not part of the text: the model's reasoning, its words around the text, a code
/// fence or quotation marks around the whole, blanks for a signature, and invisible characters. Nothing that stands in
/// @p said is taken off. Empty when nothing else is left. Any thread.
QString mendedAnswer(const QString& answer, const QString& said);

/// Whether @p answer ends within the model's reasoning.
bool endsInReasoning(const QString& answer);

} // namespace vantro
