#include "vantro/text/TextReplacer.h"

#include "base/Logger.h"

#include <QRegularExpression>

#include <unicode/regex.h>
#include <unicode/uchar.h>

#include <algorithm>

namespace vantro {

namespace {

struct Match
{
    qsizetype start;
    qsizetype end;
};

bool isWordCharacter(char32_t character)
{
    return character == U'_' || u_isalpha(static_cast<UChar32>(character)) != 0 ||
           u_getNumericValue(static_cast<UChar32>(character)) != U_NO_NUMERIC_VALUE;
}

/// Accents belong to the letter before them.
bool beginsWithWordCharacter(const QString& pattern)
{
    return isWordCharacter(pattern.toUcs4().constFirst());
}

bool endsWithWordCharacter(const QString& pattern)
{
    const QList<uint> characters = pattern.toUcs4();
    auto last = characters.crbegin();
    while (last != characters.crend() - 1 && (U_GET_GC_MASK(static_cast<UChar32>(*last)) & U_GC_M_MASK) != 0)
        ++last;
    return isWordCharacter(*last);
}

QString escaped(const QString& pattern)
{
    static const QString special = QStringLiteral(R"(\^$.|?*+()[]{}#-&~)");
    QString text;
    text.reserve(pattern.size() * 2);
    for (const QChar character : pattern) {
        if (special.contains(character))
            text += QLatin1Char('\\');
        text += character;
    }
    return text;
}

QString wholeWordExpression(const QString& pattern)
{
    const auto prefix = beginsWithWordCharacter(pattern) ? QLatin1String("(?<=\\W|^)") : QLatin1String("(?<=^|\\s)");
    const auto suffix = endsWithWordCharacter(pattern) ? QLatin1String("(?=\\W|$)") : QLatin1String("(?=$|\\s)");
    return prefix + escaped(pattern) + suffix;
}

/// The same characters, not copied: @p text must outlive it.
icu::UnicodeString aliasOf(const QString& text)
{
    return {false, reinterpret_cast<const UChar*>(text.utf16()), static_cast<std::int32_t>(text.size())};
}

std::vector<Match> wholeWordMatches(const QString& text, const QString& pattern)
{
    UErrorCode status = U_ZERO_ERROR;
    const QString expression = wholeWordExpression(pattern);
    icu::RegexMatcher matcher(aliasOf(expression), UREGEX_CASE_INSENSITIVE, status);
    if (U_FAILURE(status)) {
        printLine(QStringLiteral("TextReplacer: Failed to create regex for pattern '%1': %2")
                      .arg(pattern, QLatin1String(u_errorName(status))));
        return {};
    }
    const icu::UnicodeString subject = aliasOf(text);
    matcher.reset(subject);
    std::vector<Match> matches;
    while (matcher.find(status) && U_SUCCESS(status))
        matches.push_back({matcher.start(status), matcher.end(status)});
    return matches;
}

void collapseBlanks(QString& text)
{
    const auto end = std::unique(text.begin(), text.end(), [](QChar left, QChar right) {
        return left == QLatin1Char(' ') && right == QLatin1Char(' ');
    });
    text.truncate(end - text.begin());
}

bool hasBlankBeforePunctuation(const QString& text)
{
    constexpr QLatin1String punctuation(",.!?;:");
    for (qsizetype i = 1; i < text.size(); ++i) {
        if (text[i - 1] == QLatin1Char(' ') && punctuation.contains(text[i]))
            return true;
    }
    return false;
}

/// Removes what a deleted word leaves behind: doubled blanks and commas, a blank before a full stop. Looks before it
/// rewrites: most texts need nothing.
QString tidied(QString text)
{
    constexpr auto unicode = QRegularExpression::UseUnicodePropertiesOption;
    static const QRegularExpression commas(QStringLiteral(",\\s*,"), unicode);
    static const QRegularExpression semicolons(QStringLiteral(";\\s*;"), unicode);
    static const QRegularExpression blanksBeforePunctuation(QStringLiteral(" +([,.!?;:])"));
    collapseBlanks(text);
    if (text.contains(QLatin1Char(',')))
        text.replace(commas, QStringLiteral(","));
    if (text.contains(QLatin1Char(';')))
        text.replace(semicolons, QStringLiteral(";"));
    if (hasBlankBeforePunctuation(text))
        text.replace(blanksBeforePunctuation, QStringLiteral("\\1"));
    return text.trimmed();
}

} // namespace

QString TextReplacer::applyReplacement(const QString& text, const QString& find, const QString& replace)
{
    const QString pattern = find.trimmed();
    if (pattern.isEmpty())
        return text;
    QString result;
    qsizetype copied = 0;
    for (const Match& match : wholeWordMatches(text, pattern)) {
        result += QStringView(text).sliced(copied, match.start - copied);
        result += replace;
        copied = match.end;
    }
    result += QStringView(text).sliced(copied);
    return replace.isEmpty() ? tidied(std::move(result)) : result;
}

QString TextReplacer::applyReplacements(QString text, const std::vector<TextReplacement>& replacements)
{
    for (const TextReplacement& replacement : replacements)
        text = applyReplacement(text, replacement.find, replacement.replace);
    return text;
}

} // namespace vantro
