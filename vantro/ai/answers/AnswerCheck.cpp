#include "vantro/ai/answers/AnswerCheck.h"

#include "vantro/ai/BuiltInPrompts.h"
#include "vantro/ai/answers/AnswerMending.h"
#include "vantro/ai/answers/Phrases.h"
#include "vantro/ai/answers/TextNumbers.h"
#include "vantro/ai/answers/TextWords.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantro {

namespace {

using Doubt = AnswerSetAside::Doubt;

/// Shorter words say little: articles, prepositions.
constexpr qsizetype leastContent = 4;
/// Below as many, shares say nothing.
constexpr int leastCounted = 4;
constexpr int wordsOfALanguage = 6;
/// Up to as many words every one of them counts.
constexpr int shortText = 7;
constexpr int leastSentence = 3;
/// A sentence of which less was said is the model's own.
constexpr double leastOfASentence = 0.34;

/// In words, relative to what was said and absolute.
struct Limits
{
    double longest;
    int addition;
    double shortest;
    double newShare;  ///< of the answer's words
    int fewNew;       ///< so many are allowed in any case
    double keptShare; ///< of what was said
};

constexpr Limits limitsFor(Liberty liberty)
{
    return liberty == Liberty::letter ? Limits{1.6, 22, 0.45, 0.40, 3, 0.60} : Limits{1.35, 4, 0.50, 0.30, 2, 0.65};
}

/// One text as the comparison needs it.
struct Text
{
    explicit Text(const QString& whole) : text(whole), words(textWords(whole)), numbers(words)
    {
        for (const TextWord& word : words)
            set.insert(word.folded);
    }

    [[nodiscard]] bool has(const QString& folded) const
    {
        return set.contains(folded) ||
               std::ranges::any_of(set, [&folded](const QString& word) { return areAlike(word, folded); });
    }

    [[nodiscard]] bool names(const QString& folded) const
    {
        return std::ranges::any_of(set, [&folded](const QString& word) { return areAlikeNames(word, folded); });
    }

    QString text;
    std::vector<TextWord> words;
    TextNumbers numbers;
    QSet<QString> set;
};

bool isContent(const TextWord& word)
{
    // Scripts without an upper case have short words, and one letter of them says much.
    const bool isLetters = word.folded.size() >= leastContent || word.folded.front() > QChar(0x0590);
    return !word.isNumber && isLetters && !isFiller(word.folded) && !isNumberWord(word.folded);
}

bool isNoName(const QString& folded)
{
    static const QSet<QString> words = wordSet("am pm ok mr mrs ms dr i english deutsch");
    return words.contains(folded) || folded.startsWith(QLatin1String("i'"));
}

bool isName(const TextWord& word)
{
    return word.isCapitalised() && word.text.size() > 1 && !word.isNumber && !isNoName(word.folded);
}

/// In German every noun has a capital: it does not tell names.
bool capitalsTellNames(const std::vector<TextWord>& words)
{
    const auto inside = std::ranges::count_if(words, [](const TextWord& w) { return !w.beginsSentence; });
    const auto capitals =
        std::ranges::count_if(words, [](const TextWord& w) { return !w.beginsSentence && isName(w); });
    return capitals * 2 < inside || capitals <= 3;
}

bool isGerman(const std::optional<QString>& language)
{
    return language == QLatin1String("de") || language == QLatin1String("lb");
}

QString withoutListMarks(QString text)
{
    static const QRegularExpression marks(QStringLiteral("^[ \\t]*(?:\\d{1,2}[.)]|[-*\u2022])[ \\t]+"),
                                          QRegularExpression::MultilineOption);
    return text.remove(marks);
}

/// In which every word may have a capital.
QString withoutHeadings(QString text)
{
    static const QRegularExpression headings(QStringLiteral("^[^\\n.!?,]{1,40}:[*_ ]*$"),
                                             QRegularExpression::MultilineOption);
    return text.remove(headings);
}

/// What the user has added to a built-in prompt, such as how to sign.
QString wishesIn(const QString& prompt)
{
    for (const ProcessingMode mode : {ProcessingMode::Grammar, ProcessingMode::Email}) {
        if (prompt.startsWith(*builtInPrompt(mode)))
            return prompt.mid(builtInPrompt(mode)->size());
    }
    return {};
}

/// One answer against what was said.
class Comparison
{
public:
    Comparison(const QString& answer, const QString& said, const QString& prompt, const LanguageRecognizer& languages)
        : liberty_(libertyOf(prompt))
        , limits_(limitsFor(liberty_))
        , said_(said)
        , answer_(withoutListMarks(answer))
        , wishes_(wishesIn(prompt))
        , named_(textWords(withoutHeadings(answer_.text)))
        , taken_(takenBack(said_.words))
        , saidLanguage_(languages.dominantLanguage(said))
        , answerLanguage_(languages.dominantLanguage(answer))
    {
    }

    /// Nothing: the answer may be believed.
    [[nodiscard]] std::optional<std::pair<Doubt, QString>> doubt() const
    {
        if (answer_.text.trimmed().isEmpty())
            return std::pair(Doubt::empty, QString());
        if (talksOfItself(answer_.text) && !talksOfItself(said_.text))
            return std::pair(Doubt::refused, QString());
        if (liberty_ == Liberty::any)
            return std::nullopt;
        if (agrees(answer_.text) && !agrees(said_.text))
            return std::pair(Doubt::refused, QString());
        if (const auto blank = placeholder())
            return std::pair(Doubt::placeholder, *blank);
        if (isInOtherLanguage())
            return std::pair(Doubt::otherLanguage, QString());
        if (const auto number = answer_.numbers.missingIn(said_.numbers); number && !wishes_.text.contains(*number))
            return std::pair(Doubt::addedNumber, *number);
        if (const auto number = said_.numbers.missingIn(answer_.numbers, taken_))
            return std::pair(Doubt::missingNumber, *number);
        if (const auto name = addedName())
            return std::pair(Doubt::addedName, *name);
        if (const auto name = missingName())
            return std::pair(Doubt::missingName, *name);
        if (negationChanged())
            return std::pair(Doubt::negation, QString());
        return doubtfulAmount();
    }

private:
    [[nodiscard]] std::optional<QString> placeholder() const
    {
        static const QRegularExpression blank(
            QStringLiteral("\\[[^\\]\\n]{2,40}\\]|\\{\\{?[^}\\n]{2,40}\\}|<[A-Z][^>\\n]{2,40}>"));
        const auto match = blank.match(answer_.text);
        return match.hasMatch() && !said_.text.contains(match.captured().front()) ? std::optional(match.captured())
                                                                                  : std::nullopt;
    }

    [[nodiscard]] bool isInOtherLanguage() const
    {
        return saidLanguage_ && answerLanguage_ && saidLanguage_ != answerLanguage_ &&
               said_.words.size() >= wordsOfALanguage && answer_.words.size() >= wordsOfALanguage && shareOfNew() > 0.5;
    }

    [[nodiscard]] bool mayBeAdded(const QString& folded) const
    {
        return (liberty_ == Liberty::letter && isOfLetters(folded)) || wishes_.has(folded);
    }

    [[nodiscard]] std::optional<QString> addedName() const
    {
        const bool tells = !isGerman(saidLanguage_) && capitalsTellNames(named_);
        for (std::size_t i = 0; i < named_.size(); ++i) {
            const TextWord& word = named_[i];
            const bool isAddressee = i == 1 && liberty_ == Liberty::letter && isOfLetters(named_[0].folded);
            const bool mayBeName = (tells && !word.beginsSentence) || isAddressee || isSignature(i);
            if (mayBeName && isName(word) && !said_.names(word.folded) && !mayBeAdded(word.folded))
                return word.text;
        }
        return std::nullopt;
    }

    /// In a line of its own below the ending.
    [[nodiscard]] bool isSignature(std::size_t place) const
    {
        return liberty_ == Liberty::letter && place + 3 > named_.size() && place > 2 &&
               named_[place].before.contains(QLatin1Char('\n'));
    }

    [[nodiscard]] std::optional<QString> missingName() const
    {
        if (isGerman(saidLanguage_) || !capitalsTellNames(said_.words))
            return std::nullopt;
        for (std::size_t i = 0; i < said_.words.size(); ++i) {
            const TextWord& word = said_.words[i];
            if (!word.beginsSentence && !taken_[i] && isName(word) && !answer_.names(word.folded))
                return word.text;
        }
        return std::nullopt;
    }

    [[nodiscard]] bool negationChanged() const
    {
        const auto isIn = [](const Text& text, const std::vector<bool>& taken) {
            for (std::size_t i = 0; i < text.words.size(); ++i) {
                if (isNegation(text.words[i].folded) && (i >= taken.size() || !taken[i]))
                    return true;
            }
            return false;
        };
        const auto isInOtherWords = [](const Text& text) {
            return std::ranges::any_of(text.set, isNegationInOtherWords);
        };
        const bool wasSaid = isIn(said_, taken_);
        const bool isAnswered = isIn(answer_, {});
        if (wasSaid == isAnswered)
            return false;
        return wasSaid ? !isInOtherWords(answer_) : !isInOtherWords(said_);
    }

    [[nodiscard]] std::pair<int, int> newWords() const
    {
        int content = 0;
        int fresh = 0;
        for (const TextWord& word : answer_.words) {
            if (!isContent(word) || mayBeAdded(word.folded))
                continue;
            ++content;
            fresh += said_.has(word.folded) ? 0 : 1;
        }
        return {fresh, content};
    }

    [[nodiscard]] bool isShortAndOther() const
    {
        if (liberty_ != Liberty::wording || said_.words.size() > shortText)
            return false;
        const auto fresh = std::ranges::count_if(
            answer_.words, [this](const TextWord& word) { return !word.isNumber && !said_.has(word.folded); });
        return fresh > 1 || (fresh == 1 && answer_.words.size() < leastCounted);
    }

    /// A greeting's or an ending's sentence does not count in a letter.
    [[nodiscard]] bool hasOwnSentence() const
    {
        int words = 0;
        int content = 0;
        int said = 0;
        const auto isOwn = [&] {
            return words >= leastSentence && content > 1 && said < leastOfASentence * content;
        };
        for (const TextWord& word : answer_.words) {
            if (word.beginsSentence) {
                if (isOwn())
                    return true;
                words = content = said = 0;
            }
            ++words;
            if (isContent(word) && !mayBeAdded(word.folded)) {
                ++content;
                said += said_.has(word.folded) ? 1 : 0;
            }
        }
        return isOwn();
    }

    [[nodiscard]] double shareOfNew() const
    {
        const auto [fresh, content] = newWords();
        return content == 0 ? 0 : static_cast<double>(fresh) / content;
    }

    [[nodiscard]] double shareOfKept() const
    {
        int content = 0;
        int kept = 0;
        for (std::size_t i = 0; i < said_.words.size(); ++i) {
            if (taken_[i] || !isContent(said_.words[i]))
                continue;
            ++content;
            kept += answer_.has(said_.words[i].folded) ? 1 : 0;
        }
        return content < leastCounted ? 1 : static_cast<double>(kept) / content;
    }

    [[nodiscard]] std::optional<std::pair<Doubt, QString>> doubtfulAmount() const
    {
        const auto answered = static_cast<double>(answer_.words.size());
        const auto said = static_cast<double>(said_.words.size());
        const auto meant =
            said -
            static_cast<double>(std::ranges::count_if(
                said_.words, [](const TextWord& w) { return isFiller(w.folded) || isNumberWord(w.folded); })) -
            static_cast<double>(std::ranges::count(taken_, true));
        if (answered > limits_.longest * said + limits_.addition)
            return std::pair(Doubt::tooLong, QString());
        if (answered < limits_.shortest * meant || shareOfKept() < limits_.keptShare)
            return std::pair(Doubt::tooShort, QString());
        if ((newWords().first > limits_.fewNew && shareOfNew() > limits_.newShare) || isShortAndOther() ||
            hasOwnSentence())
            return std::pair(Doubt::otherWords, QString());
        return std::nullopt;
    }

    Liberty liberty_;
    Limits limits_;
    Text said_;
    Text answer_;
    Text wishes_;
    std::vector<TextWord> named_; ///< the answer's words, in which to look for names
    std::vector<bool> taken_;
    std::optional<QString> saidLanguage_;
    std::optional<QString> answerLanguage_;
};

} // namespace

Liberty libertyOf(const QString& prompt)
{
    if (prompt.startsWith(*builtInPrompt(ProcessingMode::Grammar)))
        return Liberty::wording;
    return prompt.startsWith(*builtInPrompt(ProcessingMode::Email)) ? Liberty::letter : Liberty::any;
}

QString AnswerCheck::checked(const QString& answer, const QString& said, const QString& prompt) const
{
    if (endsInReasoning(answer))
        throw AnswerSetAside(Doubt::cutOff, answer);
    QString mended = mendedAnswer(answer, said);
    if (const auto doubt = Comparison(mended, said, prompt, languages_).doubt())
        throw AnswerSetAside(doubt->first, answer, doubt->second);
    return mended;
}

} // namespace vantro
