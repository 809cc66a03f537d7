#include "vantro/store/TranscriptionRows.h"

#include "vantro/store/SearchText.h"
#include "vantro/store/TranscriptionFetch.h"

#include <algorithm>
#include <functional>

namespace vantro {

namespace {

/// A list as one value, for json_each().
QString asJson(const QStringList& values)
{
    return QLatin1Char('[') + values.join(QLatin1Char(',')) + QLatin1Char(']');
}

QString asJson(const std::vector<qint64>& keys)
{
    QStringList values;
    for (const qint64 key : keys)
        values << QString::number(key);
    return asJson(values);
}

std::vector<Transcription> rowsOf(StoreQuery query)
{
    std::vector<Transcription> rows;
    while (query.next())
        rows.push_back(transcriptionFrom(query));
    return rows;
}

} // namespace

std::vector<qint64> transcriptionKeys(const PersistentContainer& container, const std::vector<QUuid>& ids)
{
    QStringList values;
    for (const QUuid& id : ids)
        values << QLatin1Char('"') + storedIdentity(id) + QLatin1Char('"');
    StoreQuery query = container.run(
        QStringLiteral("SELECT pk FROM Transcription WHERE id IN (SELECT value FROM json_each(?1)) ORDER BY pk DESC"),
        {asJson(values)});
    std::vector<qint64> keys;
    while (query.next())
        keys.push_back(query.value(0).toLongLong());
    return keys;
}

std::vector<Transcription> transcriptionRows(const PersistentContainer& container, const std::vector<qint64>& keys)
{
    return rowsOf(container.run(QStringLiteral("SELECT ") + transcriptionColumns +
                                    QStringLiteral(" FROM Transcription WHERE pk IN (SELECT value FROM json_each(?1)) "
                                                   "ORDER BY pk"),
                                {asJson(keys)}));
}

std::vector<Transcription> deleteTranscriptionRows(const PersistentContainer& container,
                                                   const std::vector<qint64>& keys)
{
    PersistentContainer::Transaction transaction(container);
    auto deleted = rowsOf(container.run(
        QStringLiteral("DELETE FROM Transcription WHERE pk IN (SELECT value FROM json_each(?1)) RETURNING ") +
            transcriptionColumns,
        {asJson(keys)}));
    transaction.commit();
    std::ranges::sort(deleted, std::ranges::greater(), &Transcription::objectID);
    return deleted;
}

void restoreTranscriptionRows(const PersistentContainer& container, const std::vector<Transcription>& rows)
{
    PersistentContainer::Transaction transaction(container);
    for (const Transcription& row : rows)
        container.run(
            QStringLiteral("INSERT INTO Transcription (pk, id, created_at, processingMode, transcription, formatted, "
                           "terms, setAside, setAsideReason) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9) "
                           "ON CONFLICT (id) DO NOTHING"),
            {row.objectID, storedIdentity(row.id), storedDate(row.created_at), row.processingMode, row.transcription,
             row.formatted, searchTerms(row.transcription, row.formatted), row.setAside, row.setAsideReason});
    transaction.commit();
}

} // namespace vantro
