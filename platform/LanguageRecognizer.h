#pragma once

#include <QString>

#include <optional>

namespace vantro {

/// Tells which language a text is written in. May be called on any thread.
class LanguageRecognizer
{
public:
    virtual ~LanguageRecognizer() = default;

    /// The language of most of @p text as a BCP 47 code ("es", "zh-Hant"); nothing when none is found, as in digits.
    [[nodiscard]] virtual std::optional<QString> dominantLanguage(const QString& text) const = 0;
};

} // namespace vantro
