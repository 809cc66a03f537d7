#pragma once

#include "vantro/text/TextReplacement.h"

#include <QByteArray>
#include <QStringList>

#include <optional>
#include <vector>

namespace vantro {

/// The lists as JSON: an array of strings, and an array of objects with exactly "id" (upper-case UUID), "find" and
/// "replace". Readers return nullopt for anything else. Any thread.
QByteArray toJson(const QStringList& words);
QByteArray toJson(const std::vector<TextReplacement>& replacements);
std::optional<QStringList> vocabularyFromJson(const QByteArray& json);
std::optional<std::vector<TextReplacement>> replacementsFromJson(const QByteArray& json);

} // namespace vantro
