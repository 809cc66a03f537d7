#pragma once

#include <QString>

namespace vantro {

/// The columns of a help text at most.
inline constexpr qsizetype helpWidth = 79;

/// Breaks @p line at spaces where it is too wide; all lines but the first are indented by @p indent columns.
QString wrapped(const QString& line, qsizetype indent);

/// Sets a description anew, so that it fits whatever its language: lines that begin in the first column are joined to
/// paragraphs, lines that begin in the third one are entries with their meaning behind two spaces or more, and deeper
/// ones go on with that meaning.
QString reflowed(const QString& description);

} // namespace vantro
