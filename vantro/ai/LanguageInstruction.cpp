#include "vantro/ai/LanguageInstruction.h"

#include <unicode/locid.h>

namespace vantro {

namespace {

/// The language's name in itself ("español", "Deutsch"). ICU rather than Qt, whose names include a country ("español de
/// España").
QString nativeName(const QString& code)
{
    const icu::Locale locale(code.toLatin1().constData());
    icu::UnicodeString name;
    locale.getDisplayLanguage(locale, name);
    const QString text = QStringView(name.getBuffer(), name.length()).toString();
    // ICU returns an unknown code unchanged.
    return text.isEmpty() || text == code ? QStringLiteral("English") : text;
}

/// As codes of the recogniser and of the engines go, fewer words than a sentence has.
constexpr qsizetype wordsThatTell = 6;

QString languageInstruction(const QString& code)
{
    return QStringLiteral("\n\nCRITICAL: Respond ONLY in %1. Do not translate or switch to any other language.")
        .arg(nativeName(code));
}

} // namespace

QString languageInstruction(const LanguageRecognizer& recognizer, const QString& transcript, const QString& spoken)
{
    const bool isShort = transcript.count(QLatin1Char(' ')) < wordsThatTell;
    // A few words are taken for a neighbour's language too easily.
    const auto code =
        isShort && !spoken.isEmpty() ? std::optional(spoken) : recognizer.dominantLanguage(transcript, spoken);
    if (!code && !spoken.isEmpty())
        return languageInstruction(spoken);
    if (!code)
        return QStringLiteral("\n\nCRITICAL: Respond ONLY in English.");
    return languageInstruction(*code);
}

} // namespace vantro
