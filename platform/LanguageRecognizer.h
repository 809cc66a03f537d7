#pragma once

#include <QString>

#include <optional>

namespace vantro {

/// Detects the language of a text. Any thread.
class LanguageRecognizer
{
public:
    virtual ~LanguageRecognizer() = default;

    /// The main language of @p text as a BCP 47 code ("es", "zh-Hant"); nullopt if undetected, e.g. for digits. @p
    /// hint: the code of a likely one, which decides where the text does not; may be empty.
    [[nodiscard]] virtual std::optional<QString> dominantLanguage(const QString& text,
                                                                  const QString& hint = {}) const = 0;
};

} // namespace vantro
