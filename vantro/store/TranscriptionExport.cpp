#include "vantro/store/TranscriptionExport.h"

#include "base/OutputFile.h"
#include "vantro/text/Csv.h"

#include <QIODevice>
#include <QJsonDocument>
#include <QJsonValue>

namespace vantro {

namespace {

void writeJson(const Transcriptions& all, QIODevice& target)
{
    QByteArray separator = "[\n";
    all([&](const Transcription& row) {
        target.write(separator + QJsonDocument(toJson(row)).toJson(QJsonDocument::Compact));
        separator = ",\n";
    });
    target.write(separator == "[\n" ? "[]\n" : "\n]\n");
}

QJsonValue jsonText(const QString& text)
{
    return text.isNull() ? QJsonValue() : QJsonValue(text);
}

void writeCsvRow(const QStringList& fields, QIODevice& target)
{
    target.write(csv::line(fields).toUtf8() + "\r\n");
}

void writeCsv(const Transcriptions& all, QIODevice& target)
{
    writeCsvRow({QStringLiteral("id"), QStringLiteral("created_at"), QStringLiteral("processing_mode"),
                 QStringLiteral("transcription"), QStringLiteral("formatted")},
                target);
    all([&](const Transcription& row) {
        writeCsvRow({row.id.toString(QUuid::WithoutBraces), jsonDate(row.created_at).toString(), row.processingMode,
                     row.transcription, row.formatted},
                    target);
    });
}

QByteArray quoted(const QString& text)
{
    return "> " + text.toUtf8().replace('\n', "\n> ");
}

void writeMarkdown(const Transcription& row, QIODevice& target)
{
    target.write("\n## " + shownDate(row.created_at).toUtf8() + ", " + row.processingMode.toUtf8() + "\n\n" +
                 row.text().toUtf8() + '\n');
    if (!row.formatted.isEmpty())
        target.write('\n' + quoted(row.transcription) + '\n');
    if (!row.setAside.isEmpty())
        target.write('\n' + row.setAsideReason.toUtf8() + "\n\n" + quoted(row.setAside) + '\n');
}

} // namespace

std::optional<ExportFormat> exportFormatFrom(const QString& name)
{
    if (name == QLatin1String("json"))
        return ExportFormat::json;
    if (name == QLatin1String("csv"))
        return ExportFormat::csv;
    if (name == QLatin1String("markdown") || name == QLatin1String("md"))
        return ExportFormat::markdown;
    return std::nullopt;
}

ExportFormat exportFormatOf(const QString& file)
{
    return exportFormatFrom(file.section(QLatin1Char('.'), -1).toLower()).value_or(ExportFormat::json);
}

void exportTranscriptions(const Transcriptions& all, ExportFormat format, QIODevice& target)
{
    switch (format) {
    case ExportFormat::json:
        writeJson(all, target);
        break;
    case ExportFormat::csv:
        writeCsv(all, target);
        break;
    case ExportFormat::markdown:
        target.write("# Dictations\n");
        all([&](const Transcription& row) { writeMarkdown(row, target); });
        break;
    }
}

void exportTranscriptions(const Transcriptions& all, ExportFormat format, const QString& path)
{
    const auto fill = [&](QIODevice& file) {
        exportTranscriptions(all, format, file);
    };
    writeFile(path, fill, Readers::ownerOnly);
}

QJsonObject toJson(const Transcription& row)
{
    QJsonObject object{
        {QStringLiteral("id"), jsonText(row.id.isNull() ? QString() : row.id.toString(QUuid::WithoutBraces))},
        {QStringLiteral("created_at"), jsonDate(row.created_at)},
        {QStringLiteral("processing_mode"), jsonText(row.processingMode)},
        {QStringLiteral("transcription"), jsonText(row.transcription)},
        {QStringLiteral("formatted"), jsonText(row.formatted)}};
    if (!row.setAside.isNull()) {
        object.insert(QStringLiteral("set_aside"), row.setAside);
        object.insert(QStringLiteral("set_aside_reason"), row.setAsideReason);
    }
    return object;
}

QJsonValue jsonDate(const QDateTime& date)
{
    return date.isValid() ? QJsonValue(date.toUTC().toString(Qt::ISODateWithMs)) : QJsonValue();
}

QString shownDate(const QDateTime& date)
{
    return date.isValid() ? date.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm")) : QStringLiteral("-");
}

} // namespace vantro
