#include "vantro/ai/LanguageInstruction.h"

#include <unicode/locid.h>

namespace vantro {

namespace {

/// The language's own bare name ("español", "Deutsch"): Qt's names carry a country ("español de España").
QString nativeName(const QString& code)
{
    const icu::Locale locale(code.toLatin1().constData());
    icu::UnicodeString name;
    locale.getDisplayLanguage(locale, name);
    const QString text = QStringView(name.getBuffer(), name.length()).toString();
    // A code without a name comes back as it went in.
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
