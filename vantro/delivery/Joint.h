#pragma once

#include <QString>

namespace vantro {

/// @p text as it goes on after @p before in the same document: a space stands between them, and within a sentence it
/// begins with a small letter, unless its first word has a capital of its own ("I", "USB"). Within a sentence in
/// @p language, a code, that writes nouns with capitals it stays as it is.
[[nodiscard]] QString joinedTo(const QString& before, const QString& text, const QString& language);

} // namespace vantro
