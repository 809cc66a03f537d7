#include "vantro/text/VocabularyFile.h"

#include "base/Error.h"
#include "vantro/text/Csv.h"
#include "vantro/text/VocabularyJson.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringDecoder>

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

/// The rows without the optional header.
std::vector<QStringList> rowsOf(const QByteArray& content, const QStringList& heading)
{
    std::vector<QStringList> rows = csv::parse(decoded(content));
    if (!rows.empty() && rows.front() == heading)
        rows.erase(rows.begin());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].size() != heading.size() || rows[i].constFirst().trimmed().isEmpty())
            throw Error(QCoreApplication::translate("VocabularyFile", "entry %1 is not of the form %2")
                            .arg(i + 1)
                            .arg(heading.join(QLatin1Char(','))));
    }
    return rows;
}

const QStringList& replacementHeading()
{
    static const QStringList heading{QStringLiteral("find"), QStringLiteral("replace")};
    return heading;
}

const QStringList& wordHeading()
{
    static const QStringList heading{QStringLiteral("word")};
    return heading;
}

} // namespace

ListFormat listFormatOf(const QString& fileName)
{
    return fileName.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive) ? ListFormat::csv : ListFormat::json;
}

std::vector<TextReplacement> readReplacements(const QByteArray& content, ListFormat format)
{
    std::vector<TextReplacement> replacements;
    if (format == ListFormat::csv) {
        for (const QStringList& row : rowsOf(content, replacementHeading()))
            replacements.push_back({QUuid::createUuid(), row[0], row[1]});
        return replacements;
    }
    for (const QJsonValue value : arrayOf(content))
        replacements.push_back(replacementOf(value, static_cast<qsizetype>(replacements.size()) + 1));
    return replacements;
}

QStringList readVocabulary(const QByteArray& content, ListFormat format)
{
    QStringList words;
    if (format == ListFormat::csv) {
        for (const QStringList& row : rowsOf(content, wordHeading()))
            words << row[0];
        return words;
    }
    for (const QJsonValue value : arrayOf(content)) {
        if (!value.isString() || value.toString().trimmed().isEmpty())
            throw Error(QCoreApplication::translate("VocabularyFile", "entry %1 is not a word").arg(words.size() + 1));
        words << value.toString();
    }
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

QByteArray write(const QStringList& words, ListFormat format)
{
    if (format == ListFormat::json)
        return toJson(words) + '\n';
    QString text = csv::line(wordHeading()) + QLatin1Char('\n');
    for (const QString& word : words)
        text += csv::line({word}) + QLatin1Char('\n');
    return text.toUtf8();
}

} // namespace vantro
