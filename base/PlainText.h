#pragma once

#include <QString>

namespace vantro {

/// @p text without characters that make a terminal or a field do something instead of showing them. Tabs stay, and
/// every line ends in a newline alone.
QString withoutControlCharacters(QString text);

} // namespace vantro
