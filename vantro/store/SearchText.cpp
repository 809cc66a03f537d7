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

/// Without case and accents, unit for unit.
QString folded(const QString& text)
{
    QString result = text;
    for (QChar& unit : result) {
        if (unit.decompositionTag() == QChar::Canonical)
            unit = unit.decomposition().at(0);
        unit = unit.toCaseFolded();
    }
    return result;
}

/// Without the punctuation around a word.
QString withoutRim(const QString& piece)
{
    const auto isInside = [](QChar unit) {
        return unit.isLetterOrNumber() || unit.isSurrogate();
    };
    const auto first = std::find_if(piece.begin(), piece.end(), isInside);
    const auto last = std::find_if(piece.rbegin(), piece.rend(), isInside).base();
    return piece.mid(first - piece.begin(), last - first);
}

bool isWordStart(const QString& text, qsizetype at)
{
    return at == 0 || !text[at - 1].isLetterOrNumber() || isWrittenWithoutBlanks(text[at].unicode());
}

std::vector<SearchHit> withoutOverlap(std::vector<SearchHit> hits)
{
    std::ranges::sort(hits, {}, &SearchHit::begin);
    std::vector<SearchHit> result;
    for (const SearchHit& hit : hits) {
        if (result.empty() || hit.begin >= result.back().begin + result.back().length)
            result.push_back(hit);
        else
            result.back().length = std::max(result.back().length, hit.begin + hit.length - result.back().begin);
    }
    return result;
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
        if (hasWord(piece)) {
            phrases << asPhrase(piece);
            words << folded(withoutRim(piece));
        }
        literals << symbolRuns(piece);
    }
    match = phrases.join(QLatin1Char(' '));
    if (isEmpty())
        literals = pieces;
}

std::vector<SearchHit> searchHits(const QString& text, const SearchQuery& query)
{
    std::vector<SearchHit> hits;
    const QString plain = folded(text);
    for (const QString& word : query.words) {
        for (qsizetype at = plain.indexOf(word); at >= 0; at = plain.indexOf(word, at + 1)) {
            if (isWordStart(plain, at))
                hits.push_back({at, word.size()});
        }
    }
    for (const QString& literal : query.literals) {
        for (qsizetype at = text.indexOf(literal); at >= 0; at = text.indexOf(literal, at + literal.size()))
            hits.push_back({at, literal.size()});
    }
    return withoutOverlap(std::move(hits));
}

} // namespace vantro
