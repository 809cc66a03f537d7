#include "asr/Language.h"

#include <algorithm>
#include <utility>

namespace vantro::asr {

namespace {

constexpr std::pair<std::string_view, Language> codes[] = {
    {"be", Language::belarusian}, {"bg", Language::bulgarian}, {"bs", Language::bosnian}, {"cs", Language::czech},
    {"da", Language::danish},     {"de", Language::german},    {"el", Language::greek},   {"en", Language::english},
    {"es", Language::spanish},    {"et", Language::estonian},  {"fi", Language::finnish}, {"fr", Language::french},
    {"hr", Language::croatian},   {"hu", Language::hungarian}, {"it", Language::italian}, {"lt", Language::lithuanian},
    {"lv", Language::latvian},    {"mt", Language::maltese},   {"nl", Language::dutch},   {"pl", Language::polish},
    {"pt", Language::portuguese}, {"ro", Language::romanian},  {"ru", Language::russian}, {"sk", Language::slovak},
    {"sl", Language::slovenian},  {"sr", Language::serbian},   {"sv", Language::swedish}, {"uk", Language::ukrainian},
};

/// The code points of a piece; invalid UTF-8 bytes are kept as they are.
std::vector<char32_t> codePoints(std::string_view piece)
{
    std::vector<char32_t> result;
    for (std::size_t i = 0; i < piece.size();) {
        const auto lead = static_cast<unsigned char>(piece[i]);
        const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
        char32_t point = length == 1 ? lead : lead & (0xFFU >> (length + 1));
        for (std::size_t k = 1; k < length && i + k < piece.size(); ++k)
            point = point << 6 | (static_cast<unsigned char>(piece[i + k]) & 0x3FU);
        result.push_back(point);
        i += length;
    }
    return result;
}

/// By Unicode block; nullopt for digits, punctuation and scripts of no supported language.
std::optional<Script> scriptOfLetter(char32_t point)
{
    const auto isIn = [point](char32_t first, char32_t last) {
        return point >= first && point <= last;
    };
    if (isIn(U'A', U'Z') || isIn(U'a', U'z') || (isIn(0xC0, 0x24F) && point != 0xD7 && point != 0xF7) ||
        isIn(0x1E00, 0x1EFF))
        return Script::latin;
    if (isIn(0x400, 0x52F))
        return Script::cyrillic;
    if (isIn(0x370, 0x3FF) || isIn(0x1F00, 0x1FFF))
        return Script::greek;
    return std::nullopt;
}

} // namespace

std::optional<Language> languageFromCode(std::string_view code)
{
    const auto* const found = std::ranges::find(codes, code, &std::pair<std::string_view, Language>::first);
    return found != std::end(codes) ? std::optional(found->second) : std::nullopt;
}

Script scriptOf(Language language)
{
    switch (language) {
    case Language::belarusian:
    case Language::bulgarian:
    case Language::russian:
    case Language::serbian:
    case Language::ukrainian:
        return Script::cyrillic;
    case Language::greek:
        return Script::greek;
    default:
        return Script::latin;
    }
}

TokenFilter::TokenFilter(std::span<const std::string> vocabulary, Script script)
{
    for (const std::string& piece : vocabulary) {
        const std::vector<char32_t> points = codePoints(piece);
        allowed_.push_back(std::ranges::all_of(
            points, [script](char32_t point) { return scriptOfLetter(point).value_or(script) == script; }));
    }
}

} // namespace vantro::asr
