#pragma once

#include <QSet>
#include <QString>

#include <vector>

namespace vantro {

/// A word of a text, or a number written in digits.
struct TextWord
{
    QString text;
    QString folded;              ///< lower case, without accents
    QString before;              ///< what stands between the former word and this one
    bool beginsSentence = false; ///< or a line
    bool isNumber = false;

    [[nodiscard]] bool isCapitalised() const { return text.front().isUpper(); }
};

/// In any language, also one that is written without spaces.
std::vector<TextWord> textWords(const QString& text);

/// As TextWord::folded.
QString folded(const QString& text);

/// Whether one may stand for the other: the same but for an ending or a letter that was misheard. Both folded.
bool areAlike(const QString& one, const QString& other);

/// The same for names, of which a letter counts more: "Thursday" is not "Tuesday".
bool areAlikeNames(const QString& one, const QString& other);

/// A set of folded words, from a text with spaces between them.
QSet<QString> wordSet(const char* words);

/// Whether @p word belongs to what is said without meaning anything: "um", "also".
bool isFiller(const QString& folded);

/// Which words are taken back by what follows: "on Tuesday, no wait, Wednesday". True for the ones that need not be in
/// a rewriting.
std::vector<bool> takenBack(const std::vector<TextWord>& words);

} // namespace vantro
