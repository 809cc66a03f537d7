#pragma once

#include <string>
#include <string_view>

namespace vantro::asr {

/// The letters and digits of UTF-8 text in lower case, without anything between them.
std::u32string lettersOf(std::string_view text);

/// 1 for equal words, 0 for words without a common letter.
float spellingSimilarity(std::u32string_view a, std::u32string_view b);

} // namespace vantro::asr
