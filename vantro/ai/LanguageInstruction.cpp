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

} // namespace

QString languageInstruction(const LanguageRecognizer& recognizer, const QString& transcript)
{
    const auto code = recognizer.dominantLanguage(transcript);
    if (!code)
        return QStringLiteral("\n\nCRITICAL: Respond ONLY in English.");
    return QStringLiteral("\n\nCRITICAL: Respond ONLY in %1. Do not translate or switch to any other language.")
        .arg(nativeName(*code));
}

} // namespace vantro
