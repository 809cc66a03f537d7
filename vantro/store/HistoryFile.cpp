#include "vantro/store/HistoryFile.h"

#include "base/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <unistd.h>

#include <utility>

namespace vantro {

HistoryFile::HistoryFile(QString path, Clock& clock) : path_(std::move(path)), clock_(clock) {}

QString HistoryFile::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/vantro/history.jsonl");
}

void HistoryFile::saveTranscription(const QString& transcription, const QString& formatted, ProcessingMode mode)
{
    insert(transcription, formatted, mode);
}

QUuid HistoryFile::saveTranscription(const QString& transcription, ProcessingMode mode)
{
    return insert(transcription, QString(), mode);
}

void HistoryFile::updateFormatted(const QUuid& id, const QString& formatted)
{
    append({{QStringLiteral("id"), id.toString(QUuid::WithoutBraces)}, {QStringLiteral("formatted"), formatted}});
}

QCoro::Task<> HistoryFile::addNote(QString transcription)
{
    insert(transcription, QString(), ProcessingMode::Notes);
    co_return;
}

QCoro::Task<> HistoryFile::summarizeToday(std::shared_ptr<FormatRequestServicing> /*service*/)
{
    // Lines have no days.
    co_return;
}

QUuid HistoryFile::insert(const QString& transcription, const QString& formatted, ProcessingMode mode)
{
    const QUuid id = QUuid::createUuid();
    append({{QStringLiteral("id"), id.toString(QUuid::WithoutBraces)},
            {QStringLiteral("created_at"), clock_.wallClock().toUTC().toString(Qt::ISODateWithMs)},
            {QStringLiteral("processingMode"), rawValue(mode)},
            {QStringLiteral("transcription"), transcription},
            {QStringLiteral("formatted"), formatted}});
    return id;
}

void HistoryFile::append(const QJsonObject& row)
{
    QDir().mkpath(QFileInfo(path_).path());
    QFile file(path_);
    const QByteArray line = QJsonDocument(row).toJson(QJsonDocument::Compact) + '\n';
    if (!file.open(QIODevice::Append | QIODevice::Unbuffered) || file.write(line) != line.size() ||
        ::fdatasync(file.handle()) != 0)
        throw Error(QStringLiteral("The dictation could not be stored in %1: %2").arg(path_, file.errorString()));
    file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

} // namespace vantro
