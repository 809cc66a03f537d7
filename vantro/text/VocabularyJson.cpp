#include "vantro/text/VocabularyJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace vantro {

namespace {

std::optional<TextReplacement> replacementFromJson(const QJsonObject& object)
{
    const QJsonValue id = object.value(QLatin1String("id"));
    const QJsonValue find = object.value(QLatin1String("find"));
    const QJsonValue replace = object.value(QLatin1String("replace"));
    const TextReplacement replacement{QUuid::fromString(id.toString()), find.toString(), replace.toString()};
    if (replacement.id.isNull() || !find.isString() || !replace.isString())
        return std::nullopt;
    return replacement;
}

} // namespace

QByteArray toJson(const QStringList& words)
{
    return QJsonDocument(QJsonArray::fromStringList(words)).toJson(QJsonDocument::Compact);
}

QByteArray toJson(const std::vector<TextReplacement>& replacements)
{
    QJsonArray array;
    for (const TextReplacement& replacement : replacements)
        array.append(QJsonObject{{QStringLiteral("id"), replacement.id.toString(QUuid::WithoutBraces).toUpper()},
                                 {QStringLiteral("find"), replacement.find},
                                 {QStringLiteral("replace"), replacement.replace}});
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::optional<QStringList> vocabularyFromJson(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray())
        return std::nullopt;
    QStringList words;
    for (const QJsonValue& value : document.array()) {
        if (!value.isString())
            return std::nullopt;
        words << value.toString();
    }
    return words;
}

std::optional<std::vector<TextReplacement>> replacementsFromJson(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray())
        return std::nullopt;
    std::vector<TextReplacement> replacements;
    for (const QJsonValue& value : document.array()) {
        const auto replacement = replacementFromJson(value.toObject());
        if (!replacement)
            return std::nullopt;
        replacements.push_back(*replacement);
    }
    return replacements;
}

QByteArray toJson(const QHash<QString, VocabularyDetails>& details)
{
    QJsonObject object;
    for (auto entry = details.begin(); entry != details.end(); ++entry)
        object[entry.key()] = QJsonObject{{QStringLiteral("soundsLike"), QJsonArray::fromStringList(entry->soundsLike)},
                                          {QStringLiteral("weight"), entry->weight}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QHash<QString, VocabularyDetails> detailsFromJson(const QByteArray& json)
{
    QHash<QString, VocabularyDetails> details;
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const QJsonObject stored = entry->toObject();
        VocabularyDetails word;
        for (const QJsonValue& spelling : stored.value(QLatin1String("soundsLike")).toArray()) {
            if (const QString text = spelling.toString().trimmed(); !text.isEmpty())
                word.soundsLike << text;
        }
        word.weight = std::clamp(stored.value(QLatin1String("weight")).toDouble(1), VocabularyDetails::leastWeight,
                                 VocabularyDetails::greatestWeight);
        details.insert(entry.key(), word);
    }
    return details;
}

} // namespace vantro
