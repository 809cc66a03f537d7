#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vantro {

/// The text to index instead of a row's own texts if these contain a script written without spaces (Chinese, Japanese,
/// Thai, ...): every such character becomes a word, so that any substring is found. Null for other texts, which are
/// indexed as they are.
QString searchTerms(const QString& transcription, const QString& formatted);

/// Converts a user's search text. A row matches if it contains all words, in any order, as whole words or prefixes,
/// ignoring case and accents, and all symbols that are not words (emoji, "+", currency signs). There is no query
/// syntax: all characters are literal.
struct SearchQuery
{
    explicit SearchQuery(const QString& typed);

    [[nodiscard]] bool isEmpty() const { return match.isEmpty() && literals.isEmpty(); }

    QString match;        ///< FTS5 query; empty without words
    QStringList literals; ///< each must occur literally in one of the texts
    QStringList words;    ///< what was typed, to look for in a text
};

/// A range of UTF-16 units.
struct SearchHit
{
    qsizetype begin = 0;
    qsizetype length = 0;

    bool operator==(const SearchHit&) const = default;
};

/// Where the words and symbols of @p query are in @p text: in order, without overlap.
[[nodiscard]] std::vector<SearchHit> searchHits(const QString& text, const SearchQuery& query);

} // namespace vantro
