#include "platform/linux/cld2/Cld2LanguageRecognizer.h"

#include <QByteArray>

#include <array>

// The library's header uses these without including them.
#include <cld2/public/compact_lang_det.h>
#include <cld2/public/encodings.h>

#include <cstdio>
#include <cstring>

namespace vantro {

namespace {

/// Maps outdated codes of the library to current ones.
QString modernCode(const QString& code)
{
    if (code == QLatin1String("iw"))
        return QStringLiteral("he");
    if (code == QLatin1String("jw"))
        return QStringLiteral("jv");
    return code;
}

} // namespace

std::optional<QString> Cld2LanguageRecognizer::dominantLanguage(const QString& text, const QString& hint) const
{
    const QByteArray utf8 = text.toUtf8();
    // The library's simpler functions return English if nothing is detected.
    const QByteArray likely = hint.toLatin1();
    const CLD2::CLDHints hints{likely.isEmpty() ? nullptr : likely.constData(), nullptr, CLD2::UNKNOWN_ENCODING,
                               CLD2::UNKNOWN_LANGUAGE};
    std::array<CLD2::Language, 3> languages{};
    std::array<int, 3> percents{};
    std::array<double, 3> scores{};
    int textBytes = 0;
    bool isReliable = false;
    const CLD2::Language language = CLD2::ExtDetectLanguageSummary(utf8.constData(), static_cast<int>(utf8.size()),
                                                                   true, &hints, 0, languages.data(), percents.data(),
                                                                   scores.data(), nullptr, &textBytes, &isReliable);
    if (language == CLD2::UNKNOWN_LANGUAGE)
        return std::nullopt;
    return modernCode(QString::fromLatin1(CLD2::LanguageCode(language)));
}

} // namespace vantro
