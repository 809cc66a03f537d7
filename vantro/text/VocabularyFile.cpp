#include "vantro/text/VocabularyFile.h"

#include "base/Error.h"
#include "vantro/text/Csv.h"
#include "vantro/text/VocabularyJson.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringDecoder>

#include <algorithm>

namespace vantro {

namespace {

QString decoded(const QByteArray& content)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder(content);
    if (decoder.hasError())
        throw Error(QCoreApplication::translate("VocabularyFile", "the text is not UTF-8"));
    return text;
}

QJsonArray arrayOf(const QByteArray& content)
{
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(content, &problem);
    if (problem.error != QJsonParseError::NoError)
        throw Error(QCoreApplication::translate("VocabularyFile", "at byte %1: %2")
                        .arg(problem.offset)
                        .arg(problem.errorString()));
    if (!document.isArray())
        throw Error(QCoreApplication::translate("VocabularyFile", "the JSON text is not a list"));
    return document.array();
}

TextReplacement replacementOf(const QJsonValue& value, qsizetype number)
{
    const QJsonObject object = value.toObject();
    const QJsonValue find = object.value(QLatin1String("find"));
    const QJsonValue replace = object.value(QLatin1String("replace"));
    if (!find.isString() || !replace.isString() || find.toString().trimmed().isEmpty())
        throw Error(QCoreApplication::translate(
                        "VocabularyFile", "entry %1 needs the texts \"find\", which must not be empty, and \"replace\"")
                        .arg(number));
    const QUuid id = QUuid::fromString(object.value(QLatin1String("id")).toString());
    return {id.isNull() ? QUuid::createUuid() : id, find.toString(), replace.toString()};
}

void require(bool isOfForm, std::size_t index, const QStringList& heading)
{
    if (!isOfForm)
        throw Error(QCoreApplication::translate("VocabularyFile", "entry %1 is not of the form %2")
                        .arg(index + 1)
                        .arg(heading.join(QLatin1Char(','))));
}

const QStringList& replacementHeading()
{
    static const QStringList heading{QStringLiteral("find"), QStringLiteral("replace")};
    return heading;
}

/// A plain list has the first column alone.
const QStringList& wordHeading()
{
    static const QStringList heading{QStringLiteral("word"), QStringLiteral("weight"), QStringLiteral("sounds like")};
    return heading;
}

bool isWeight(double number)
{
    return number >= VocabularyDetails::leastWeight && number <= VocabularyDetails::greatestWeight;
}

void addSpelling(VocabularyDetails& details, const QString& text)
{
    if (!text.trimmed().isEmpty() && !details.soundsLike.contains(text.trimmed()))
        details.soundsLike << text.trimmed();
}

VocabularyWord wordOf(const QStringList& row, std::size_t index)
{
    require(!row[0].trimmed().isEmpty(), index, wordHeading());
    VocabularyWord word{row[0]};
    if (row.size() > 1) {
        bool isNumber = false;
        word.details.weight = row[1].toDouble(&isNumber);
        require(isNumber && isWeight(word.details.weight), index, wordHeading());
    }
    for (qsizetype i = 2; i < row.size(); ++i)
        addSpelling(word.details, row[i]);
    return word;
}

VocabularyWord wordOf(const QJsonValue& value, std::size_t index)
{
    const QJsonObject object = value.toObject();
    VocabularyWord word{value.isString() ? value.toString() : object.value(QLatin1String("word")).toString()};
    const QJsonValue weight = object.value(QLatin1String("weight"));
    const QJsonValue soundsLike = object.value(QLatin1String("sounds_like"));
    bool isWord = !word.text.trimmed().isEmpty() && (weight.isUndefined() || weight.isDouble()) &&
                  (soundsLike.isUndefined() || soundsLike.isArray());
    word.details.weight = weight.toDouble(word.details.weight);
    for (const auto& spelling : soundsLike.toArray()) {
        isWord = isWord && spelling.isString();
        addSpelling(word.details, spelling.toString());
    }
    if (!isWord || !isWeight(word.details.weight))
        throw Error(QCoreApplication::translate("VocabularyFile", "entry %1 is not a word").arg(index + 1));
    return word;
}

/// A word without details is a plain text.
QJsonValue toValue(const VocabularyWord& word)
{
    if (word.details == VocabularyDetails())
        return word.text;
    return QJsonObject{{QStringLiteral("word"), word.text},
                       {QStringLiteral("weight"), word.details.weight},
                       {QStringLiteral("sounds_like"), QJsonArray::fromStringList(word.details.soundsLike)}};
}

} // namespace

ListFormat listFormatOf(const QString& fileName)
{
    const bool hasLines = fileName.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive) ||
                          fileName.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive);
    return hasLines ? ListFormat::csv : ListFormat::json;
}

std::vector<TextReplacement> readReplacements(const QByteArray& content, ListFormat format)
{
    std::vector<TextReplacement> replacements;
    if (format == ListFormat::csv) {
        std::vector<QStringList> rows = csv::parse(decoded(content));
        if (!rows.empty() && rows.front() == replacementHeading())
            rows.erase(rows.begin());
        for (const QStringList& row : rows) {
            require(row.size() == 2 && !row[0].trimmed().isEmpty(), replacements.size(), replacementHeading());
            replacements.push_back({QUuid::createUuid(), row[0], row[1]});
        }
        return replacements;
    }
    for (const auto& value : arrayOf(content))
        replacements.push_back(replacementOf(value, static_cast<qsizetype>(replacements.size()) + 1));
    return replacements;
}

std::vector<VocabularyWord> readVocabulary(const QByteArray& content, ListFormat format)
{
    std::vector<VocabularyWord> words;
    if (format == ListFormat::csv) {
        std::vector<QStringList> rows = csv::parse(decoded(content));
        if (!rows.empty() && (rows.front() == wordHeading() || rows.front() == wordHeading().mid(0, 1)))
            rows.erase(rows.begin());
        for (const QStringList& row : rows)
            words.push_back(wordOf(row, words.size()));
        return words;
    }
    for (const auto& value : arrayOf(content))
        words.push_back(wordOf(value, words.size()));
    return words;
}

QByteArray write(const std::vector<TextReplacement>& replacements, ListFormat format)
{
    if (format == ListFormat::json)
        return toJson(replacements) + '\n';
    QString text = csv::line(replacementHeading()) + QLatin1Char('\n');
    for (const TextReplacement& replacement : replacements)
        text += csv::line({replacement.find, replacement.replace}) + QLatin1Char('\n');
    return text.toUtf8();
}

QByteArray write(const std::vector<VocabularyWord>& words, ListFormat format)
{
    if (format == ListFormat::json) {
        QJsonArray array;
        for (const VocabularyWord& word : words)
            array.append(toValue(word));
        return QJsonDocument(array).toJson(QJsonDocument::Compact) + '\n';
    }
    const bool isPlain =
        std::ranges::all_of(words, [](const VocabularyWord& word) { return word.details == VocabularyDetails(); });
    QString text = csv::line(isPlain ? wordHeading().mid(0, 1) : wordHeading()) + QLatin1Char('\n');
    for (const VocabularyWord& word : words) {
        QStringList fields{word.text};
        if (word.details != VocabularyDetails())
            fields << QString::number(word.details.weight) << word.details.soundsLike;
        text += csv::line(fields) + QLatin1Char('\n');
    }
    return text.toUtf8();
}

} // namespace vantro
