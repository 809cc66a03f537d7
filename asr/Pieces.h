#pragma once

#include <string>
#include <string_view>

namespace vantro::asr {

/// U+2581, which stands for the blank before a word.
inline constexpr std::string_view wordStart = "\u2581";

/// Appends a model's piece to @p text, its word start as a blank, which is left out at the beginning of the text.
void appendPiece(std::string& text, std::string_view piece);

} // namespace vantro::asr
