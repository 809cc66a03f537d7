#include "vantro/text/TextReplacer.h"

#include "base/Logger.h"

#include <QRegularExpression>
#include <QStringMatcher>

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

/// Skips combining marks at the end.
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

/// A read-only alias without copying; @p text must outlive it.
icu::UnicodeString aliasOf(const QString& text)
{
    return {false, reinterpret_cast<const UChar*>(text.utf16()), static_cast<std::int32_t>(text.size())};
}

/// Whether case folding changes the length ("ß" becomes "ss").
bool growsWhenFolded(const QString& text)
{
    icu::UnicodeString folded(reinterpret_cast<const UChar*>(text.utf16()), static_cast<std::int32_t>(text.size()));
    return folded.foldCase().length() != text.size();
}

void findEverywhere(icu::RegexMatcher& matcher, std::vector<Match>& matches)
{
    UErrorCode status = U_ZERO_ERROR;
    while (matcher.find(status) && U_SUCCESS(status))
        matches.push_back({matcher.start(status), matcher.end(status)});
}

/// The same, faster, if case folding keeps the length: tries the expression only at occurrences of @p pattern.
void findAtOccurrences(icu::RegexMatcher& matcher, const QString& text, const QString& pattern,
                       std::vector<Match>& matches)
{
    matcher.useTransparentBounds(true).useAnchoringBounds(false);
    const QStringMatcher letters(pattern, Qt::CaseInsensitive);
    for (qsizetype at = letters.indexIn(text); at >= 0; at = letters.indexIn(text, at)) {
        UErrorCode status = U_ZERO_ERROR;
        matcher.region(at, text.size(), status);
        const bool isWhole = matcher.lookingAt(status) && U_SUCCESS(status);
        if (isWhole)
            matches.push_back({at, matcher.end(status)});
        at = isWhole ? matches.back().end : at + 1;
    }
}

std::vector<Match> wholeWordMatches(const QString& text, const QString& pattern, bool textGrows)
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
    if (textGrows || growsWhenFolded(pattern))
        findEverywhere(matcher, matches);
    else
        findAtOccurrences(matcher, text, pattern, matches);
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

bool isDoubled(const QString& text, QLatin1Char mark)
{
    for (qsizetype at = text.indexOf(mark); at >= 0; at = text.indexOf(mark, at + 1)) {
        qsizetype next = at + 1;
        while (next < text.size() && text[next].isSpace())
            ++next;
        if (next < text.size() && text[next] == mark)
            return true;
    }
    return false;
}

/// Cleans up after a deleted word: double spaces and commas, spaces before punctuation. Checks before rewriting,
/// because most texts need nothing.
QString withTidyPunctuation(QString text)
{
    constexpr auto unicode = QRegularExpression::UseUnicodePropertiesOption;
    static const QRegularExpression commas(QStringLiteral(",\\s*,"), unicode);
    static const QRegularExpression semicolons(QStringLiteral(";\\s*;"), unicode);
    static const QRegularExpression blanksBeforePunctuation(QStringLiteral(" +([,.!?;:])"));
    collapseBlanks(text);
    if (isDoubled(text, QLatin1Char(',')))
        text.replace(commas, QStringLiteral(","));
    if (isDoubled(text, QLatin1Char(';')))
        text.replace(semicolons, QStringLiteral(";"));
    if (hasBlankBeforePunctuation(text))
        text.replace(blanksBeforePunctuation, QStringLiteral("\\1"));
    return text.trimmed();
}

QString replaced(const QString& text, const QString& find, const QString& replace, bool textGrows)
{
    const QString pattern = find.trimmed();
    if (pattern.isEmpty())
        return text;
    QString result;
    result.reserve(text.size());
    qsizetype copied = 0;
    for (const Match& match : wholeWordMatches(text, pattern, textGrows)) {
        result += QStringView(text).sliced(copied, match.start - copied);
        result += replace;
        copied = match.end;
    }
    result += QStringView(text).sliced(copied);
    return replace.isEmpty() ? withTidyPunctuation(std::move(result)) : result;
}

} // namespace

QString TextReplacer::applyReplacement(const QString& text, const QString& find, const QString& replace)
{
    return replaced(text, find, replace, growsWhenFolded(text));
}

QString TextReplacer::applyReplacements(QString text, const std::vector<TextReplacement>& replacements)
{
    bool textGrows = growsWhenFolded(text);
    for (const TextReplacement& replacement : replacements) {
        text = replaced(text, replacement.find, replacement.replace, textGrows);
        textGrows = textGrows || growsWhenFolded(replacement.replace);
    }
    return text;
}

} // namespace vantro
