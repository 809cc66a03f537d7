#include "vantro/store/CoreDataStack.h"

#include "base/Logger.h"
#include "vantro/store/SearchText.h"
#include "vantro/store/TranscriptionRows.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace vantro {

namespace {

/// Lists compare themselves with the store rather than hear of each.
constexpr std::size_t manyRows = 50;

} // namespace

QString CoreDataStack::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/vantro/MainModel.sqlite");
}

CoreDataStack::CoreDataStack(Clock& clock, const QString& path) : clock_(clock), persistentContainer_(path)
{
    // Later: a list may be reading at the moment.
    persistentContainer_.onReplaced(
        [this] { QMetaObject::invokeMethod(this, &CoreDataStack::followNewFile, Qt::QueuedConnection); });
}

CoreDataStack::CoreDataStack(bool inMemory, Clock& clock) : CoreDataStack(clock, inMemory ? QString() : standardPath())
{
}

CoreDataStack::~CoreDataStack() = default;

void CoreDataStack::loadPersistentStores()
{
    persistentContainer_.load();
}

QUuid CoreDataStack::saveTranscription(const QString& transcription, const QString& formatted, ProcessingMode mode)
{
    return insert(transcription, formatted, mode);
}

QUuid CoreDataStack::saveTranscription(const QString& transcription, ProcessingMode mode)
{
    return insert(transcription, QString(), mode);
}

QUuid CoreDataStack::insert(const QString& transcription, const QString& formatted, ProcessingMode mode)
{
    const QUuid id = QUuid::createUuid();
    const qint64 key = insertTranscription(persistentContainer_, {0, id, clock_.wallClock(), rawValue(mode),
                                                                  presentText(transcription), presentText(formatted)});
    Q_EMIT transcriptionChanged(key);
    return id;
}

void CoreDataStack::updateFormatted(const QUuid& id, const QString& formatted)
{
    const auto row = transcription(id);
    if (!row)
        return;
    persistentContainer_.run(QStringLiteral("UPDATE Transcription SET formatted = ?2, terms = ?3 WHERE pk = ?1"),
                             {row->objectID, presentText(formatted), searchTerms(row->transcription, formatted)});
    Q_EMIT transcriptionChanged(row->objectID);
}

void CoreDataStack::setAside(const QUuid& id, const QString& answer, const QString& reason)
{
    const auto row = transcription(id);
    if (!row)
        return;
    persistentContainer_.run(
        QStringLiteral("UPDATE Transcription SET setAside = ?2, setAsideReason = ?3 WHERE pk = ?1"),
        {row->objectID, presentText(answer), presentText(reason)});
    Q_EMIT transcriptionChanged(row->objectID);
}

std::optional<Transcription> CoreDataStack::transcription(const QUuid& id) const
{
    const QVariant key =
        persistentContainer_.value(QStringLiteral("SELECT pk FROM Transcription WHERE id = ?1"), {storedIdentity(id)});
    if (key.isNull())
        return std::nullopt;
    const qint64 objectID = key.toLongLong();
    const auto rows = TranscriptionFetch(persistentContainer_, {}).rows({objectID, objectID}, 1);
    return rows.empty() ? std::nullopt : std::optional(rows.front());
}

std::vector<QUuid> CoreDataStack::transcriptionIDs(const QString& prefix, int limit) const
{
    return identities(QStringLiteral("Transcription"), prefix, limit);
}

std::vector<QUuid> CoreDataStack::identities(const QString& entity, const QString& prefix, int limit) const
{
    // "g" sorts after all hex digits.
    const QString begin = presentText(prefix.toLower());
    StoreQuery query =
        persistentContainer_.run(QStringLiteral("SELECT id FROM %1 WHERE id >= ?1 AND id < ?2 LIMIT ?3").arg(entity),
                                 {begin, begin + QLatin1Char('g'), limit});
    std::vector<QUuid> result;
    while (query.next())
        result.emplace_back(query.value(0).toString());
    return result;
}

std::vector<Transcription> CoreDataStack::deleteTranscriptions(const std::vector<QUuid>& ids)
{
    const auto keys = transcriptionKeys(persistentContainer_, ids);
    auto deleted = deleteTranscriptionRows(persistentContainer_, keys);
    announce(deleted);
    return deleted;
}

void CoreDataStack::restoreTranscriptions(const std::vector<Transcription>& rows)
{
    restoreTranscriptionRows(persistentContainer_, rows);
    announce(rows);
}

void CoreDataStack::updateTranscription(const Transcription& row)
{
    persistentContainer_.run(QStringLiteral("UPDATE Transcription SET processingMode = ?2, transcription = ?3, "
                                            "formatted = ?4, terms = ?5, setAside = ?6, setAsideReason = ?7 "
                                            "WHERE pk = ?1"),
                             {row.objectID, row.processingMode, presentText(row.transcription),
                              presentText(row.formatted), searchTerms(row.transcription, row.formatted), row.setAside,
                              row.setAsideReason});
    Q_EMIT transcriptionChanged(row.objectID);
}

StoredAmount CoreDataStack::amount() const
{
    const auto count = [this](const char* entity) {
        return persistentContainer_.value(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(entity)).toInt();
    };
    const QString& file = persistentContainer_.path();
    return {count("Transcription"), count("Note"),
            QFileInfo(file).size() + QFileInfo(file + QStringLiteral("-wal")).size()};
}

int CoreDataStack::countBefore(const QDateTime& moment) const
{
    return persistentContainer_
        .value(QStringLiteral("SELECT count(*) FROM Transcription WHERE created_at < ?1"), {storedDate(moment)})
        .toInt();
}

void CoreDataStack::announce(const std::vector<Transcription>& changed)
{
    if (changed.size() > manyRows) {
        announceChanges();
        return;
    }
    for (const Transcription& row : changed)
        Q_EMIT transcriptionChanged(row.objectID);
}

void CoreDataStack::announceChanges()
{
    Q_EMIT changedAtLarge();
}

void CoreDataStack::watchOtherProcesses()
{
    if (watch_ || persistentContainer_.isInMemory())
        return;
    isWatching_ = true;
    watch_ = std::make_unique<StoreWatch>(persistentContainer_);
    connect(watch_.get(), &StoreWatch::changedElsewhere, this, &CoreDataStack::changedAtLarge);
}

void CoreDataStack::followNewFile()
{
    watch_.reset();
    try {
        if (isWatching_)
            watchOtherProcesses();
    } catch (const StoreError& error) { // the next statement meets it, too, and tries again
        Logger("CoreDataStack").error(error.localizedDescription());
    }
    announceChanges();
}

qint64 insertTranscription(const PersistentContainer& container, const Transcription& row)
{
    return container
        .value(QStringLiteral("INSERT INTO Transcription "
                              "(pk, id, created_at, processingMode, transcription, formatted, terms) "
                              "VALUES (%1, ?2, ?3, ?4, ?5, ?6, ?7) ON CONFLICT (id) DO NOTHING RETURNING pk")
                   .arg(PersistentContainer::freeKey(QStringLiteral("Transcription"))),
               {row.created_at.isValid() ? row.created_at.toMSecsSinceEpoch() : 0, storedIdentity(row.id),
                storedDate(row.created_at), row.processingMode, row.transcription, row.formatted,
                searchTerms(row.transcription, row.formatted)})
        .toLongLong();
}

} // namespace vantro
