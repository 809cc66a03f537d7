#pragma once

#include "vantro/text/TextReplacement.h"

#include <QByteArray>
#include <QStringList>

#include <vector>

namespace vantro {

/// Import and export of words and replacements as JSON (the stored form; IDs are optional) or CSV ("find,replace" and
/// "word"; the header line is optional). Readers throw Error, which says what is wrong and where.
enum class ListFormat { json, csv };

/// By file name: CSV for ".csv" and ".txt", otherwise JSON.
ListFormat listFormatOf(const QString& fileName);

std::vector<TextReplacement> readReplacements(const QByteArray& content, ListFormat format);
QStringList readVocabulary(const QByteArray& content, ListFormat format);
QByteArray write(const std::vector<TextReplacement>& replacements, ListFormat format);
QByteArray write(const QStringList& words, ListFormat format);

} // namespace vantro
