#pragma once

#include <QString>

namespace vantro {

// Words and phrases that tell a rewriting from an invention, in the languages that letters are mostly written in:
// English, German, Spanish and French. Any thread.

/// Whether a word is one of those that letters consist of, whatever is said in them. Folded, as the next two.
bool isOfLetters(const QString& folded);
bool isNegation(const QString& folded);
/// Whether a word says the same without a negation: "unhappy", "refuse".
bool isNegationInOtherWords(const QString& folded);

/// Whether a model speaks as one, to refuse or to offer its help.
bool talksOfItself(const QString& text);
/// Whether a text begins as an answer to a request does: "Sure", "Of course".
bool agrees(const QString& text);

} // namespace vantro
