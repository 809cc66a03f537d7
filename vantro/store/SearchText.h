#pragma once

#include <QString>
#include <QStringList>

namespace vantro {

/// What the full-text index is given for a row in place of its texts, where they hold characters of a script that is
/// written without blanks (Chinese, Japanese, Thai, ...): there every character becomes a word, so that any part of a
/// text is found. Null for all other texts, which are indexed as they are.
QString searchTerms(const QString& transcription, const QString& formatted);

/// What somebody typed into a search field, as the history is asked for it. A text is found when it holds all words, in
/// any order, each at least as the beginning of a longer one; case and accents do not count. Signs that are no words
/// (emoji, "+", a currency's) must stand there too. No character has a meaning of its own.
struct SearchQuery
{
    explicit SearchQuery(const QString& typed);

    [[nodiscard]] bool isEmpty() const { return match.isEmpty() && literals.isEmpty(); }

    QString match;        ///< in the language of FTS5; empty without a word
    QStringList literals; ///< must each stand in a text as they are
};

} // namespace vantro
