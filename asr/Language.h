#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantro::asr {

/// Possible language hints: the 25 languages of the multilingual model and three that share their scripts and much of
/// their vocabulary.
enum class Language {
    belarusian,
    bosnian,
    bulgarian,
    croatian,
    czech,
    danish,
    dutch,
    english,
    estonian,
    finnish,
    french,
    german,
    greek,
    hungarian,
    italian,
    latvian,
    lithuanian,
    maltese,
    polish,
    portuguese,
    romanian,
    russian,
    serbian,
    slovak,
    slovenian,
    spanish,
    swedish,
    ukrainian,
};

enum class Script { latin, cyrillic, greek };

/// @p code: ISO 639-1, lower case.
std::optional<Language> languageFromCode(std::string_view code);
Script scriptOf(Language language);

/// The tokens allowed by a language hint: those without letters of another script.
class TokenFilter
{
public:
    TokenFilter(std::span<const std::string> vocabulary, Script script);

    [[nodiscard]] bool allows(std::size_t token) const { return token >= allowed_.size() || allowed_[token] != 0; }

private:
    std::vector<std::uint8_t> allowed_;
};

} // namespace vantro::asr
