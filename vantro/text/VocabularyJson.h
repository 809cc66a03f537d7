#pragma once

#include "vantro/text/TextReplacement.h"
#include "vantro/text/VocabularySettings.h"

#include <QByteArray>
#include <QHash>
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

/// An object with an object per word: "soundsLike", a list of texts, and "weight", a number; both may be absent. What
/// is not of that form is left out.
QByteArray toJson(const QHash<QString, VocabularyDetails>& details);
QHash<QString, VocabularyDetails> detailsFromJson(const QByteArray& json);

} // namespace vantro
