#pragma once

#include <QString>

namespace vantro {

/// @p text without characters that make a terminal or a field do something instead of showing them. Tabs stay, and
/// every line ends in a newline alone.
QString withoutControlCharacters(QString text);

/// @p text in one line, to tell it by. A longer one than @p limit characters ends with an ellipsis, at a blank if there
/// is one in its second half.
QString firstWords(const QString& text, qsizetype limit);

} // namespace vantro
