#include "vantro/store/LegacyHistory.h"

#include "base/Logger.h"
#include "vantro/store/CoreDataStack.h"
#include "vantro/store/SearchText.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace vantro {

namespace {

QString text(const QJsonObject& line, const char* key)
{
    return line.value(QLatin1String(key)).toString();
}

void addRow(const PersistentContainer& container, const QUuid& id, const QJsonObject& line)
{
    const QDateTime created = QDateTime::fromString(text(line, "created_at"), Qt::ISODateWithMs);
    insertTranscription(container, {0, id, created, text(line, "processingMode"),
                                    presentText(text(line, "transcription")), presentText(text(line, "formatted"))});
}

void changeRow(const PersistentContainer& container, const QUuid& id, const QString& formatted)
{
    const QVariant transcription =
        container.value(QStringLiteral("SELECT transcription FROM Transcription WHERE id = ?1"), {storedIdentity(id)});
    container.run(QStringLiteral("UPDATE Transcription SET formatted = ?2, terms = ?3 WHERE id = ?1"),
                  {storedIdentity(id), presentText(formatted), searchTerms(transcription.toString(), formatted)});
}

/// False for a line that says nothing.
bool importLine(const PersistentContainer& container, const QByteArray& bytes)
{
    const QJsonObject line = QJsonDocument::fromJson(bytes).object();
    const QUuid id(text(line, "id"));
    if (id.isNull())
        return false;
    if (line.contains(QLatin1String("transcription")))
        addRow(container, id, line);
    else
        changeRow(container, id, text(line, "formatted"));
    return true;
}

} // namespace

LegacyHistory::LegacyHistory(const QString& folder) : path_(folder + QStringLiteral("/history.jsonl")) {}

void LegacyHistory::importInto(const PersistentContainer& container) const
{
    QFile file(path_);
    if (!file.exists())
        return;
    const Logger logger("LegacyHistory");
    // A second process that has found the file too waits here, and adds no row twice.
    PersistentContainer::Transaction transaction(container);
    if (!file.open(QIODevice::ReadOnly)) {
        if (file.exists())
            throw StoreError(
                QStringLiteral("The earlier history %1 cannot be read: %2").arg(path_, file.errorString()));
        return;
    }
    int unreadable = 0;
    while (!file.atEnd())
        unreadable += importLine(container, file.readLine()) ? 0 : 1;
    const QString aside = nameAside();
    transaction.commit();
    if (!QFile::rename(path_, aside))
        logger.error(QStringLiteral("%1 was taken over but keeps its name").arg(path_));
    logger.info(
        QStringLiteral("The dictations of %1 are in the history now; the file is kept as %2").arg(path_, aside));
    if (unreadable > 0)
        logger.error(QStringLiteral("%1 lines of %2 could not be read").arg(unreadable).arg(aside));
}

QString LegacyHistory::nameAside() const
{
    QString name = path_ + QStringLiteral(".imported");
    for (int number = 2; QFile::exists(name); ++number)
        name = path_ + QStringLiteral(".imported-%1").arg(number);
    return name;
}

} // namespace vantro
