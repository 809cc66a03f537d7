#include "vantro/ai/answers/TextNumbers.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>

namespace vantro {

namespace {

using Values = QHash<QString, qint64>;

/// "zero:0 null:0": folded words with their values.
Values values(const char* list)
{
    Values result;
    const QStringList entries = QString::fromUtf8(list).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& entry : entries)
        result.insert(entry.section(QLatin1Char(':'), 0, 0), entry.section(QLatin1Char(':'), 1).toLongLong());
    return result;
}

/// "one" and its like are left out: they are pronouns and articles more often than numbers.
const Values& small()
{
    static const Values table = values(
        "zero:0 two:2 three:3 four:4 five:5 six:6 seven:7 eight:8 nine:9 ten:10 eleven:11 twelve:12 thirteen:13 "
        "fourteen:14 fifteen:15 sixteen:16 seventeen:17 eighteen:18 nineteen:19 twenty:20 thirty:30 forty:40 fifty:50 "
        "sixty:60 seventy:70 eighty:80 ninety:90 "
        "null:0 eins:1 zwei:2 zwo:2 drei:3 vier:4 funf:5 sechs:6 sieben:7 acht:8 neun:9 zehn:10 elf:11 zwolf:12 "
        "dreizehn:13 vierzehn:14 funfzehn:15 sechzehn:16 siebzehn:17 achtzehn:18 neunzehn:19 zwanzig:20 dreißig:30 "
        "dreissig:30 vierzig:40 funfzig:50 sechzig:60 siebzig:70 achtzig:80 neunzig:90 "
        "dos:2 tres:3 cuatro:4 cinco:5 seis:6 siete:7 ocho:8 nueve:9 diez:10 doce:12 trece:13 catorce:14 "
        "quince:15 dieciseis:16 diecisiete:17 dieciocho:18 diecinueve:19 veinte:20 treinta:30 cuarenta:40 cincuenta:50 "
        "sesenta:60 setenta:70 ochenta:80 noventa:90 "
        "deux:2 trois:3 quatre:4 cinq:5 sept:7 huit:8 neuf:9 dix:10 onze:11 douze:12 treize:13 quatorze:14 quinze:15 "
        "seize:16 vingt:20 trente:30 quarante:40 cinquante:50 soixante:60");
    return table;
}

qint64 scale(const QString& word)
{
    static const Values table =
        values("hundred:100 hundert:100 einhundert:100 cien:100 ciento:100 thousand:1000 "
               "tausend:1000 eintausend:1000 mil:1000 mille:1000 million:1000000 millionen:1000000 millions:1000000 "
               "millones:1000000");
    return table.value(word, 0);
}

qint64 ordinal(const QString& word)
{
    static const Values table =
        values("first:1 second:2 third:3 fourth:4 fifth:5 sixth:6 seventh:7 eighth:8 ninth:9 tenth:10 eleventh:11 "
               "twelfth:12 thirteenth:13 fourteenth:14 fifteenth:15 sixteenth:16 seventeenth:17 eighteenth:18 "
               "nineteenth:19 twentieth:20 thirtieth:30 erste:1 ersten:1 erstens:1 zweite:2 zweiten:2 zweitens:2 "
               "dritte:3 dritten:3 drittens:3 vierte:4 vierten:4 funfte:5 funften:5 sechste:6 sechsten:6 siebte:7 "
               "siebten:7 achte:8 achten:8 neunte:9 neunten:9 zehnte:10 zehnten:10 primero:1 segundo:2 tercero:3 "
               "premier:1 premiere:1 deuxieme:2 troisieme:3");
    return table.value(word, -1);
}

/// "fünfundvierzig", "viertausendfünfhundert"; nullopt when @p word is no number.
std::optional<qint64> compound(const QString& word)
{
    if (const auto known = small().constFind(word); known != small().constEnd())
        return *known;
    if (word == QLatin1String("ein") || word == QLatin1String("eine"))
        return 1;
    for (const auto& [name, factor] : {std::pair(QStringLiteral("tausend"), 1'000), {QStringLiteral("hundert"), 100}}) {
        const qsizetype place = word.indexOf(name);
        if (place < 0)
            continue;
        const auto many = place == 0 ? std::optional<qint64>(1) : compound(word.left(place));
        QString tail = word.mid(place + name.size());
        const auto rest = tail.isEmpty() ? std::optional<qint64>(0) : compound(tail);
        return many && rest ? std::optional(*many * factor + *rest) : std::nullopt;
    }
    const qsizetype joint = word.indexOf(QLatin1String("und"));
    if (joint <= 0)
        return std::nullopt;
    const auto unit = compound(word.left(joint));
    const auto ten = small().constFind(word.mid(joint + 3));
    const bool isSum = unit && *unit < 10 && ten != small().constEnd() && *ten >= 20;
    return isSum ? std::optional(*ten + *unit) : std::nullopt;
}

std::optional<qint64> wordValue(const QString& word)
{
    if (word == QLatin1String("ein") || word == QLatin1String("eine"))
        return std::nullopt;
    return compound(word);
}

/// "4,500", "1.250.000" and "4500.00" are one number each; "2.3" and "3:15" are two.
QStringList digitGroups(QString text)
{
    static const QRegularExpression cents(QStringLiteral("[.,]00$"));
    static const QRegularExpression thousands(QStringLiteral("(?<=\\d)[.,'\u2019](?=\\d{3}(?!\\d))"));
    static const QRegularExpression others(QStringLiteral("\\D+"));
    return text.remove(cents).remove(thousands).split(others, Qt::SkipEmptyParts);
}

/// Whether a number goes on across @p between: "555-0199", "17:45", "five five five".
bool isWithinRun(const QString& between)
{
    static const QRegularExpression join(QStringLiteral("^[\\s.:,/\u2013-]{0,2}$"));
    return !between.contains(QLatin1Char('\n')) && join.match(between).hasMatch();
}

/// Words of a number in words: how many were read, and its value.
struct Spelled
{
    std::size_t count = 0;
    qint64 value = 0;
};

bool isAnd(const QString& word)
{
    return word == QLatin1String("and") || word == QLatin1String("und") || word == QLatin1String("y") ||
           word == QLatin1String("et");
}

/// "two hundred and twenty five", "forty five", "quatre vingt dix".
Spelled spelled(const std::vector<TextWord>& words, std::size_t from)
{
    Spelled result;
    qint64 total = 0;
    std::optional<qint64> current;
    for (std::size_t i = from; i < words.size(); ++i) {
        const QString& word = words[i].folded;
        if (i > from && !isWithinRun(words[i].before))
            break;
        const auto value = words[i].isNumber ? std::nullopt : wordValue(word);
        if (const qint64 factor = scale(word); factor > 0 && (current || i == from)) {
            const qint64 many = current.value_or(1) * factor;
            total += factor >= 1'000 ? many : 0;
            current = factor >= 1'000 ? std::nullopt : std::optional(many);
        } else if (value && !current) {
            current = value;
        } else if (value && *current % 100 == 0 && *current > 0 && *value < 100) {
            current = *current + *value;
        } else if (value && *current == 4 && *value == 20 && word == QLatin1String("vingt")) {
            current = 80;
        } else if (value && *current % 10 == 0 && *current % 100 >= 20 && *value > 0 &&
                   (*value < 10 || (*value < 20 && (*current == 60 || *current == 80)))) {
            current = *current + *value;
        } else if (isAnd(word) && i > from && i + 1 < words.size() && wordValue(words[i + 1].folded) &&
                   (!current || *current % 100 == 0 || (*current % 10 == 0 && word != QLatin1String("and")))) {
            continue;
        } else {
            break;
        }
        result = {i + 1 - from, total + current.value_or(0)};
    }
    return result;
}

QString shownWords(const std::vector<TextWord>& words, std::size_t from, std::size_t count)
{
    QString shown = words[from].text;
    for (std::size_t i = from + 1; i < from + count; ++i)
        shown += words[i].before + words[i].text;
    return shown;
}

/// In "zero one nine nine", where it is no pronoun.
bool isOneOfMany(const std::vector<TextWord>& words, std::size_t place, const std::vector<std::size_t>& ends)
{
    if (words[place].folded != QLatin1String("one"))
        return false;
    const bool follows = !ends.empty() && ends.back() == place;
    const bool leads = place + 1 < words.size() && small().contains(words[place + 1].folded);
    return (follows || leads) && (place == 0 || isWithinRun(words[place].before) || leads);
}

} // namespace

bool isNumberWord(const QString& word)
{
    return wordValue(word) || scale(word) > 0 || ordinal(word) >= 0;
}

TextNumbers::TextNumbers(const std::vector<TextWord>& words)
{
    read(words);
    allowReadings(words);
}

void TextNumbers::read(const std::vector<TextWord>& words)
{
    std::vector<std::size_t> ends;
    const auto add = [&](qint64 value, const QString& digits, std::size_t from, std::size_t count) {
        numbers_.push_back({value, digits, from, shownWords(words, from, count), {}});
        ends.push_back(from + count);
    };
    for (std::size_t i = 0; i < words.size();) {
        std::size_t read = 1;
        const QStringList groups = digitGroups(words[i].folded);
        for (const QString& digits : groups)
            add(digits.toLongLong(), digits, i, 1);
        const bool isMultiplied = !groups.isEmpty() && i + 1 < words.size() && scale(words[i + 1].folded) > 0;
        if (isMultiplied) { // "45 thousand"
            Number& number = numbers_.back();
            number.value *= scale(words[i + 1].folded);
            number.digits = QString::number(number.value);
            read = 2;
        } else if (groups.isEmpty()) {
            const Spelled inWords = isOneOfMany(words, i, ends) ? Spelled{1, 1} : spelled(words, i);
            if (inWords.count > 0)
                add(inWords.value, QString::number(inWords.value), i, inWords.count);
            read = std::max(inWords.count, read);
        }
        i += read;
    }
    joinRuns(words, ends);
}

void TextNumbers::joinRuns(const std::vector<TextWord>& words, const std::vector<std::size_t>& ends)
{
    std::size_t begin = 0;
    for (std::size_t i = 0; i < numbers_.size(); ++i) {
        const bool goesOn =
            i + 1 < numbers_.size() && (numbers_[i + 1].place == numbers_[i].place ||
                                        (numbers_[i + 1].place == ends[i] && isWithinRun(words[ends[i]].before)));
        if (goesOn)
            continue;
        QString run;
        for (std::size_t each = begin; each <= i; ++each)
            run += numbers_[each].digits;
        for (std::size_t each = begin; each <= i; ++each)
            numbers_[each].run = run;
        begin = i + 1;
    }
}

/// What a rewriting may make of words that are no number by themselves.
void TextNumbers::allowReadings(const std::vector<TextWord>& words)
{
    static const QSet<QString> quarters = wordSet("quarter viertel dreiviertel cuarto quart");
    static const QSet<QString> halves = wordSet("half halb halbe halben halber halbes demi demie");
    static const QSet<QString> ones = wordSet("one eins ein eine einen einem einer un una une uno a an");
    static const QSet<QString> clock = wordSet(
        "p.m pm p.m. o'clock afternoon evening tonight night uhr nachmittag nachmittags abend abends tarde noche "
        "heures h soir apres-midi midi");
    readings_ << 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const TextWord& word = words[i];
        if (quarters.contains(word.folded))
            parts_.push_back({15, {}, i, word.text, {}});
        if (halves.contains(word.folded))
            parts_.push_back({30, {}, i, word.text, {}});
        if (ones.contains(word.folded))
            readings_ << 1;
        if (const qint64 place = ordinal(word.folded); place >= 0)
            readings_ << place << 20 + place << 30 + place;
        if (word.folded == QLatin1String("dozen") || word.folded == QLatin1String("dutzend"))
            readings_ << 12;
    }
    for (const Number& part : parts_) {
        const QList<qint64> meanings = part.value == 15 ? QList<qint64>{15, 45, 25} : QList<qint64>{30, 5, 50};
        readings_ += QSet<qint64>(meanings.begin(), meanings.end());
    }
    for (const Number& number : numbers_) {
        if (number.value <= 24 && !parts_.empty())
            readings_ << number.value - 1; // "Viertel vor vier", "halb vier"
    }
    isOfTheClock_ = !parts_.empty() || std::ranges::any_of(words, [](const TextWord& word) {
        return clock.contains(word.folded) || word.before.endsWith(QLatin1Char(':'));
    });
}

bool TextNumbers::says(const Number& number) const
{
    constexpr qsizetype leastPart = 3; // of a telephone number
    return readings_.contains(number.value) || std::ranges::any_of(numbers_, [&number](const Number& ours) {
               return ours.value == number.value || ours.run == number.run || ours.run == number.digits ||
                      (number.digits.size() >= leastPart && ours.run.contains(number.digits)) ||
                      number.run == ours.digits;
           });
}

bool TextNumbers::saysOnTheClock(qint64 value) const
{
    constexpr qint64 halfDay = 12;
    return std::ranges::any_of(numbers_, [value](const Number& ours) {
        return value <= 2 * halfDay && std::abs(ours.value - value) == halfDay && ours.value <= 2 * halfDay;
    });
}

bool TextNumbers::saysPart(const Number& part) const
{
    static const QSet<qint64> quarters{15, 45, 25, 75};
    static const QSet<qint64> halves{30, 5, 50};
    return !parts_.empty() || std::ranges::any_of(numbers_, [&part](const Number& number) {
        return (part.value == 15 ? quarters : halves).contains(number.value);
    });
}

std::optional<QString> TextNumbers::missingIn(const TextNumbers& other, const std::vector<bool>& taken) const
{
    const auto isTaken = [&taken](const Number& number) {
        return number.place < taken.size() && taken[number.place];
    };
    const bool isOfTheClock = isOfTheClock_ || other.isOfTheClock_;
    for (const Number& number : numbers_) {
        if (!isTaken(number) && !other.says(number) && !(isOfTheClock && other.saysOnTheClock(number.value)))
            return number.shown;
    }
    for (const Number& part : parts_) {
        if (!isTaken(part) && !other.saysPart(part))
            return part.shown;
    }
    return std::nullopt;
}

} // namespace vantro
