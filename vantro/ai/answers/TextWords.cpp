#include "vantro/ai/answers/TextWords.h"

#include <unicode/brkiter.h>

#include <algorithm>
#include <memory>

namespace vantro {

namespace {

/// How far back a correction reaches, in words.
constexpr std::ptrdiff_t correctionReach = 4;

constexpr qsizetype leastStem = 4;

bool endsSentence(const QString& between)
{
    return std::ranges::any_of(between, [](QChar c) {
        return c == QLatin1Char('\n') || c == QLatin1Char('.') || c == QLatin1Char('!') || c == QLatin1Char('?') ||
               c == QLatin1Char(':') || c == QChar(0x3002) || c == QLatin1Char('*') || c == QLatin1Char('#');
    });
}

/// "Mr. Henderson" is one sentence.
bool isTitle(const QString& folded, const QString& after)
{
    static const QSet<QString> titles = wordSet("mr mrs ms dr prof st hr fr sr sra mme");
    return titles.contains(folded) && after.trimmed() == QLatin1Char('.');
}

/// Up to @p most changes, which are few.
bool differsByAtMost(const QString& one, const QString& other, qsizetype most)
{
    std::vector<qsizetype> row(static_cast<std::size_t>(other.size()) + 1);
    for (std::size_t i = 0; i < row.size(); ++i)
        row[i] = static_cast<qsizetype>(i);
    for (qsizetype i = 0; i < one.size(); ++i) {
        qsizetype diagonal = row[0]++;
        for (std::size_t j = 1; j < row.size(); ++j) {
            const bool isSame = one[i] == other[static_cast<qsizetype>(j) - 1];
            const qsizetype best = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (isSame ? 0 : 1)});
            diagonal = std::exchange(row[j], best);
        }
    }
    return row.back() <= most;
}

/// The phrases by which a speaker takes back what was just said.
const std::vector<QStringList>& corrections()
{
    static const std::vector<QStringList> phrases = [] {
        std::vector<QStringList> split;
        for (const char* phrase :
             {"no wait",   "wait no",      "no sorry",   "sorry no",      "i mean",      "i meant",      "scratch that",
              "or rather", "correction",   "make that",  "no actually",   "nein warte",  "warte nein",   "ach nein",
              "nein doch", "ich meine",    "ich meinte", "besser gesagt", "vielmehr",    "nein quatsch", "korrektur",
              "no perdon", "perdon",       "digo",       "quiero decir",  "mejor dicho", "non attends",  "non pardon",
              "pardon",    "je veux dire", "enfin"})
            split.push_back(QString::fromLatin1(phrase).split(QLatin1Char(' ')));
        return split;
    }();
    return phrases;
}

bool standsAt(const QStringList& phrase, const std::vector<TextWord>& words, std::size_t place)
{
    if (place + static_cast<std::size_t>(phrase.size()) > words.size())
        return false;
    return std::equal(phrase.begin(), phrase.end(), words.begin() + static_cast<std::ptrdiff_t>(place),
                      [](const QString& part, const TextWord& word) { return part == word.folded; });
}

} // namespace

QString folded(const QString& text)
{
    QString plain = text.toCaseFolded().normalized(QString::NormalizationForm_KD);
    plain.removeIf([](QChar c) { return c.isMark(); });
    return plain.replace(QChar(0x2019), QLatin1Char('\''));
}

std::vector<TextWord> textWords(const QString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> breaks(
        icu::BreakIterator::createWordInstance(icu::Locale::getRoot(), status));
    std::vector<TextWord> words;
    if (U_FAILURE(status))
        return words;
    const icu::UnicodeString whole(false, reinterpret_cast<const char16_t*>(text.utf16()),
                                   static_cast<int32_t>(text.size()));
    breaks->setText(whole);
    QString before;
    for (int32_t from = breaks->first(), to = breaks->next(); to != icu::BreakIterator::DONE;
         from = std::exchange(to, breaks->next())) {
        const QString part = text.mid(from, to - from);
        const int32_t kind = breaks->getRuleStatus();
        if (kind < UBRK_WORD_NONE_LIMIT) {
            before += part;
            continue;
        }
        const bool begins = words.empty() || (endsSentence(before) && !isTitle(words.back().folded, before));
        words.push_back({part, folded(part), std::exchange(before, {}), begins, kind < UBRK_WORD_NUMBER_LIMIT});
    }
    return words;
}

bool areAlike(const QString& one, const QString& other)
{
    if (one == other)
        return true;
    const qsizetype shorter = std::min(one.size(), other.size());
    const qsizetype longer = std::max(one.size(), other.size());
    if (shorter < leastStem)
        return false;
    const auto [first, second] = std::ranges::mismatch(one, other);
    const qsizetype common = first - one.begin();
    if (common >= leastStem && common * 5 >= longer * 3)
        return true;
    return longer - shorter <= 2 && differsByAtMost(one, other, longer >= 8 ? 2 : 1);
}

bool areAlikeNames(const QString& one, const QString& other)
{
    constexpr qsizetype leastLength = 5;
    static const QString possessive = QStringLiteral("'s");
    const auto bare = [](const QString& name) {
        return name.endsWith(possessive) ? name.chopped(possessive.size()) : name;
    };
    return bare(one) == bare(other) ||
           (std::min(one.size(), other.size()) >= leastLength && differsByAtMost(one, other, 1));
}

QSet<QString> wordSet(const char* words)
{
    const QStringList list = QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return {list.begin(), list.end()};
}

bool isFiller(const QString& folded)
{
    static const QSet<QString> fillers = wordSet(
        "um uh uhm erm er hmm hm mhm ah oh like well so okay ok basically actually really just yeah right "
        "kind sort mean know guess anyway maybe bit please ahm ah aeh eh also halt eben quasi sozusagen ja naja "
        "tja mal eigentlich irgendwie bitte este pues bueno entonces eh euh ben bah alors donc voila quoi");
    return fillers.contains(folded);
}

std::vector<bool> takenBack(const std::vector<TextWord>& words)
{
    std::vector<bool> is(words.size(), false);
    for (std::size_t place = 0; place < words.size(); ++place) {
        for (const QStringList& phrase : corrections()) {
            if (!standsAt(phrase, words, place))
                continue;
            const auto end = is.begin() + static_cast<std::ptrdiff_t>(place);
            std::fill(end - std::min<std::ptrdiff_t>(correctionReach, end - is.begin()), end + phrase.size(), true);
        }
    }
    return is;
}

} // namespace vantro
