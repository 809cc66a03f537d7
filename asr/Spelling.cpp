#include "asr/Spelling.h"

#include "asr/BKTree.h"

#include <algorithm>
#include <cstddef>

namespace vantro::asr {

namespace {

/// Basic Latin, Latin-1, Greek and Cyrillic; the other letters stay as they are.
char32_t lowered(char32_t letter)
{
    const auto isWithin = [letter](char32_t first, char32_t last) {
        return letter >= first && letter <= last;
    };
    if (isWithin(U'A', U'Z') || (isWithin(0xC0, 0xDE) && letter != 0xD7) || isWithin(0x391, 0x3A9) ||
        isWithin(0x410, 0x42F))
        return letter + 32;
    return isWithin(0x400, 0x40F) ? letter + 80 : letter;
}

bool isLetter(char32_t character)
{
    const bool isBasic = (character >= U'a' && character <= U'z') || (character >= U'0' && character <= U'9');
    const bool isMark = (character >= 0x2000 && character <= 0x2BFF) || (character >= 0x80 && character < 0xC0);
    return isBasic || (character >= 0x80 && !isMark);
}

} // namespace

std::u32string lettersOf(std::string_view text)
{
    std::u32string letters;
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        char32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
        const std::size_t end = std::min(i + length, text.size());
        for (++i; i < end; ++i)
            character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3FU);
        character = lowered(character);
        if (isLetter(character))
            letters += character;
    }
    return letters;
}

float spellingSimilarity(std::u32string_view a, std::u32string_view b)
{
    const std::size_t longer = std::max(a.size(), b.size());
    if (longer == 0)
        return 0;
    return 1 - static_cast<float>(editDistance(a, b, longer)) / static_cast<float>(longer);
}

} // namespace vantro::asr
