#pragma once

#include "vantro/text/TextReplacement.h"

#include <QByteArray>
#include <QStringList>

#include <vector>

namespace vantro {

/// Lists of words and replacements as files that people exchange: JSON (as it is stored; identities may be absent) or
/// CSV
/// ("find,replace" and "word", a heading line being optional). Reading throws an Error that says what is wrong where.
enum class ListFormat { json, csv };

/// By the name's ending: CSV for ".csv", JSON otherwise.
ListFormat listFormatOf(const QString& fileName);

std::vector<TextReplacement> readReplacements(const QByteArray& content, ListFormat format);
QStringList readVocabulary(const QByteArray& content, ListFormat format);
QByteArray write(const std::vector<TextReplacement>& replacements, ListFormat format);
QByteArray write(const QStringList& words, ListFormat format);

} // namespace vantro
