#include "vantro/store/SearchText.h"

#include <QChar>

#include <algorithm>

namespace vantro {

namespace {

constexpr char16_t firstWithoutBlanks = 0x0e01;
constexpr char32_t prolongedSoundMark = 0x30fc; // used in two scripts, so it has none

bool isWrittenWithoutBlanks(char32_t character)
{
    if (character < firstWithoutBlanks)
        return false;
    switch (QChar::script(character)) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Bopomofo:
    case QChar::Script_Yi:
    case QChar::Script_Thai:
    case QChar::Script_Lao:
    case QChar::Script_Khmer:
    case QChar::Script_Myanmar:
    case QChar::Script_Tibetan:
        return true;
    default:
        return character == prolongedSoundMark;
    }
}

/// @p text with spaces around every character of such a script; null if there is none.
QString spaced(const QString& text)
{
    if (std::ranges::none_of(text, [](QChar unit) { return unit >= QChar(firstWithoutBlanks); }))
        return {};
    QString result;
    bool isNeeded = false;
    for (const uint character : text.toUcs4()) {
        if (isWrittenWithoutBlanks(character)) {
            isNeeded = true;
            result += QLatin1Char(' ');
            result += QChar::fromUcs4(character);
            result += QLatin1Char(' ');
        } else {
            result += QChar::fromUcs4(character);
        }
    }
    return isNeeded ? result : QString();
}

bool isSymbol(char32_t character)
{
    const auto category = QChar::category(character);
    return category >= QChar::Symbol_Math && category <= QChar::Symbol_Other;
}

QString asPhrase(const QString& piece)
{
    QString words = spaced(piece);
    if (words.isNull())
        words = piece;
    words.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QStringLiteral("\"%1\"*").arg(words);
}

/// Runs of symbols, such as the "++" in "C++".
QStringList symbolRuns(const QString& piece)
{
    QStringList runs;
    bool isInside = false;
    for (const uint character : piece.toUcs4()) {
        const bool isSign = isSymbol(character);
        if (isSign && !isInside)
            runs << QString();
        if (isSign)
            runs.last() += QChar::fromUcs4(character);
        isInside = isSign;
    }
    return runs;
}

bool hasWord(const QString& piece)
{
    return std::ranges::any_of(piece.toUcs4(), [](uint character) { return QChar::isLetterOrNumber(character); });
}

} // namespace

QString searchTerms(const QString& transcription, const QString& formatted)
{
    const QString first = spaced(transcription);
    const QString second = spaced(formatted);
    if (first.isNull() && second.isNull())
        return {};
    return (first.isNull() ? transcription : first) + QLatin1Char('\n') + (second.isNull() ? formatted : second);
}

SearchQuery::SearchQuery(const QString& typed)
{
    QString text = typed;
    // FTS5 stops at a NUL.
    text.replace(QChar(u'\0'), QLatin1Char(' '));
    QStringList phrases;
    const QStringList pieces = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& piece : pieces) {
        if (hasWord(piece))
            phrases << asPhrase(piece);
        literals << symbolRuns(piece);
    }
    match = phrases.join(QLatin1Char(' '));
    if (isEmpty())
        literals = pieces;
}

} // namespace vantro
