#pragma once

#include "vantro/text/VocabularySettings.h"

#include <QByteArray>

#include <vector>

namespace vantro {

/// Import and export of words and replacements. Readers throw Error, which says what is wrong and where.
/// JSON: replacements as they are stored (IDs are optional); a word is a text, or with details an object of "word",
/// "weight" and "sounds_like". CSV: "find,replace", and "word" or with details "word,weight,sounds like", where each
/// further field is another spelling; the header line is optional.
enum class ListFormat { json, csv };

/// By file name: CSV for ".csv" and ".txt", otherwise JSON.
ListFormat listFormatOf(const QString& fileName);

std::vector<TextReplacement> readReplacements(const QByteArray& content, ListFormat format);
std::vector<VocabularyWord> readVocabulary(const QByteArray& content, ListFormat format);
QByteArray write(const std::vector<TextReplacement>& replacements, ListFormat format);
QByteArray write(const std::vector<VocabularyWord>& words, ListFormat format);

} // namespace vantro
