#pragma once

#include <QString>

#include <optional>

namespace vantro {

/// Detects the language of a text. Any thread.
class LanguageRecognizer
{
public:
    virtual ~LanguageRecognizer() = default;

    /// The main language of @p text as a BCP 47 code ("es", "zh-Hant"); nullopt if undetected, e.g. for digits.
    [[nodiscard]] virtual std::optional<QString> dominantLanguage(const QString& text) const = 0;
};

} // namespace vantro
