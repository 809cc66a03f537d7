#include "vantro/cli/HistorySession.h"
#include "vantro/text/Csv.h"

#include <QIODevice>
#include <QJsonDocument>

namespace vantro {

namespace {

void writeJson(const std::function<void(const std::function<void(const Transcription&)>&)>& forEach, QIODevice& target)
{
    QByteArray separator = "[\n";
    forEach([&](const Transcription& row) {
        target.write(separator + QJsonDocument(toJson(row)).toJson(QJsonDocument::Compact));
        separator = ",\n";
    });
    target.write(separator == "[\n" ? "[]\n" : "\n]\n");
}

void writeCsvRow(const QStringList& fields, QIODevice& target)
{
    target.write(csv::line(fields).toUtf8() + "\r\n");
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

void exportHistory(const CoreDataStack& store, const HistoryFilter& filter, int limit, ExportFormat format,
                   QIODevice& target)
{
    const auto forEach = [&](const std::function<void(const Transcription&)>& visit) {
        forEachTranscription(store, filter, limit, visit);
    };
    switch (format) {
    case ExportFormat::json:
        writeJson(forEach, target);
        break;
    case ExportFormat::csv:
        writeCsvRow({QStringLiteral("id"), QStringLiteral("created_at"), QStringLiteral("processingMode"),
                     QStringLiteral("transcription"), QStringLiteral("formatted")},
                    target);
        forEach([&](const Transcription& row) {
            writeCsvRow({row.id.toString(QUuid::WithoutBraces), jsonDate(row.created_at).toString(), row.processingMode,
                         row.transcription, row.formatted},
                        target);
        });
        break;
    case ExportFormat::markdown:
        target.write("# Dictations\n");
        forEach([&](const Transcription& row) { writeMarkdown(row, target); });
        break;
    }
}

} // namespace vantro
