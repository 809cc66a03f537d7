// The part of CoreDataStack for daily notes.
#include "base/Logger.h"
#include "vantro/store/CoreDataStack.h"

#include <QCoreApplication>
#include <QTimeZone>

namespace vantro {

namespace {

QDateTime startOfDay(QDate date, const QDateTime& now)
{
    return now.timeSpec() == Qt::LocalTime ? date.startOfDay() : date.startOfDay(now.timeZone());
}

QString joined(const std::vector<Note>& notes)
{
    QStringList texts;
    for (const Note& note : notes) {
        if (!note.transcription.isNull())
            texts << note.transcription;
    }
    return texts.join(QStringLiteral("\n\n---\n\n"));
}

void printFailure(const char* what, const std::exception& error)
{
    printLine(QLatin1String(what) + localizedDescription(error));
}

constexpr char summaryFailed[] = "Failed to summarize today's notes: ";
constexpr char summaryNotSaved[] = "Failed to save daily summary note: ";
constexpr char dayNotReloaded[] = "Failed to reload DailyNote for updating summary: ";

} // namespace

CoreDataStack::Day CoreDataStack::day(QDate date) const
{
    const QDateTime now = clock_.wallClock();
    return {startOfDay(date, now), startOfDay(date.addDays(1), now)};
}

QCoro::Task<QUuid> CoreDataStack::addNote(QString transcription)
{
    const QDateTime now = clock_.wallClock();
    const QUuid id = QUuid::createUuid();
    PersistentContainer::Transaction transaction(persistentContainer_);
    const qint64 today = todaysDailyNote(now);
    persistentContainer_.run(
        QStringLiteral("INSERT INTO Note (pk, id, created_at, transcription, dailyNote) VALUES (%1, ?2, ?1, ?3, ?4)")
            .arg(PersistentContainer::freeKey(QStringLiteral("Note"))),
        {now.toMSecsSinceEpoch(), storedIdentity(id), presentText(transcription), today});
    transaction.commit();
    Q_EMIT dailyNoteChanged(today);
    Q_EMIT noteAdded(transcription);
    co_return QUuid(id);
}

/// Call within a transaction, so that concurrent processes create only one day.
qint64 CoreDataStack::todaysDailyNote(const QDateTime& now)
{
    if (const auto today = dailyNoteWithin(day(now.date())))
        return *today;
    return persistentContainer_
        .value(QStringLiteral("INSERT INTO DailyNote (pk, id, created_at, formatted) VALUES (%1, ?2, ?1, '') "
                              "RETURNING pk")
                   .arg(PersistentContainer::freeKey(QStringLiteral("DailyNote"))),
               {now.toMSecsSinceEpoch(), storedIdentity(QUuid::createUuid())})
        .toLongLong();
}

std::optional<qint64> CoreDataStack::dailyNoteWithin(const Day& day) const
{
    const QVariant key = persistentContainer_.value(
        QStringLiteral("SELECT pk FROM DailyNote WHERE created_at >= ?1 AND created_at < ?2 ORDER BY created_at"),
        {storedDate(day.start), storedDate(day.end)});
    return key.isNull() ? std::nullopt : std::optional(key.toLongLong());
}

std::vector<Note> CoreDataStack::todaysNotes() const
{
    const auto today = dailyNoteWithin(day(clock_.wallClock().date()));
    return today ? notesOf(*today) : std::vector<Note>();
}

QCoro::Task<> CoreDataStack::summarizeToday(std::shared_ptr<FormatRequestServicing> service)
{
    if (!service)
        co_return;
    const QDate today = clock_.wallClock().date();
    std::vector<Note> notes;
    QString summary;
    try {
        notes = todaysNotes();
        if (notes.empty())
            co_return;
        const auto formatting = service->format(summaryPrompt_(), joined(notes));
        summary = co_await formatting;
    } catch (const std::exception& error) {
        printFailure(summaryFailed, error);
        co_return;
    }
    try {
        PersistentContainer::Transaction transaction(persistentContainer_);
        // By now it may be past midnight, or the day may have been deleted.
        const auto summarized = dailyNoteWithin(day(today));
        const qint64 dailyNote = summarized ? *summarized : todaysDailyNote(clock_.wallClock());
        setSummary(dailyNote, summary);
        transaction.commit();
        summaryStored(dailyNote, notes.size());
    } catch (const std::exception& error) {
        printFailure(summaryNotSaved, error);
    }
}

QCoro::Task<QString> CoreDataStack::regenerateSummary(DailyNote day, std::shared_ptr<FormatRequestServicing> service)
{
    if (!service)
        co_return QString();
    const char* step = summaryFailed;
    QString problem;
    try {
        const std::vector<Note> notes = notesOf(day.objectID);
        if (notes.empty()) {
            printLine(QStringLiteral("No notes found for this daily note"));
            co_return QString();
        }
        const auto formatting = service->format(summaryPrompt_(), joined(notes));
        const QString summary = co_await formatting;
        step = dayNotReloaded;
        if (countDailyNotes({day.objectID, day.objectID}) == 0)
            throw StoreError(QCoreApplication::translate("StoreError", "the day was deleted"));
        step = summaryNotSaved;
        setSummary(day.objectID, summary);
        summaryStored(day.objectID, notes.size());
    } catch (const std::exception& error) {
        printFailure(step, error);
        problem = localizedDescription(error);
    }
    co_return problem;
}

void CoreDataStack::setSummary(qint64 dailyNote, const QString& summary)
{
    persistentContainer_.run(QStringLiteral("UPDATE DailyNote SET formatted = ?2 WHERE pk = ?1"),
                             {dailyNote, presentText(summary)});
}

void CoreDataStack::summaryStored(qint64 dailyNote, std::size_t noteCount)
{
    Q_EMIT dailyNoteChanged(dailyNote);
    printLine(QStringLiteral("Daily summary updated with %1 notes").arg(noteCount));
}

std::optional<DailyNote> CoreDataStack::dailyNote(QDate date) const
{
    const auto key = dailyNoteWithin(day(date));
    if (!key)
        return std::nullopt;
    const auto days = dailyNotes({*key, *key}, 1);
    return days.empty() ? std::nullopt : std::optional(days.front());
}

std::vector<DailyNote> CoreDataStack::dailyNotes(FetchRange range, int limit) const
{
    StoreQuery query = persistentContainer_.run(
        QStringLiteral("SELECT pk, id, created_at, formatted, (SELECT count(*) FROM Note WHERE dailyNote = d.pk) "
                       "FROM DailyNote d WHERE pk <= ?1 AND pk >= ?2 ORDER BY pk DESC LIMIT ?3"),
        {range.newest, range.oldest, limit});
    std::vector<DailyNote> result;
    while (query.next())
        result.push_back({query.value(0).toLongLong(), QUuid(query.value(1).toString()), dateFromStored(query.value(2)),
                          query.value(3).toString(), query.value(4).toInt()});
    return result;
}

int CoreDataStack::countDailyNotes(FetchRange range) const
{
    return persistentContainer_
        .value(QStringLiteral("SELECT count(*) FROM DailyNote WHERE pk <= ?1 AND pk >= ?2"),
               {range.newest, range.oldest})
        .toInt();
}

std::vector<Note> CoreDataStack::notes(const DailyNote& day) const
{
    return notesOf(day.objectID);
}

std::vector<Note> CoreDataStack::notesOf(qint64 dailyNote) const
{
    // A missing date counts as the current moment.
    StoreQuery query = persistentContainer_.run(
        QStringLiteral("SELECT pk, id, created_at, transcription FROM Note WHERE dailyNote = ?1 "
                       "ORDER BY ifnull(created_at, ?2), pk"),
        {dailyNote, storedDate(clock_.wallClock())});
    std::vector<Note> result;
    while (query.next())
        result.push_back({query.value(0).toLongLong(), QUuid(query.value(1).toString()), dateFromStored(query.value(2)),
                          query.value(3).toString(), dailyNote});
    return result;
}

std::vector<QUuid> CoreDataStack::noteIDs(const QString& prefix, int limit) const
{
    return identities(QStringLiteral("Note"), prefix, limit);
}

bool CoreDataStack::hasNote(const QUuid& id) const
{
    return !persistentContainer_.value(QStringLiteral("SELECT 1 FROM Note WHERE id = ?1"), {storedIdentity(id)})
                .isNull();
}

void CoreDataStack::updateNote(const Note& note)
{
    persistentContainer_.run(QStringLiteral("UPDATE Note SET transcription = ?2 WHERE id = ?1"),
                             {storedIdentity(note.id), note.transcription});
    Q_EMIT dailyNoteChanged(note.dailyNote);
}

void CoreDataStack::deleteDailyNote(const DailyNote& day)
{
    persistentContainer_.run(QStringLiteral("DELETE FROM DailyNote WHERE pk = ?1"), {day.objectID});
    Q_EMIT dailyNoteChanged(day.objectID);
}

void CoreDataStack::restoreDailyNote(const DailyNote& day, const std::vector<Note>& notes)
{
    PersistentContainer::Transaction transaction(persistentContainer_);
    persistentContainer_.run(
        QStringLiteral("INSERT INTO DailyNote (pk, id, created_at, formatted) VALUES (?1, ?2, ?3, ?4)"),
        {day.objectID, storedIdentity(day.id), storedDate(day.created_at), day.formatted});
    for (const Note& note : notes)
        insert(note);
    transaction.commit();
    Q_EMIT dailyNoteChanged(day.objectID);
}

void CoreDataStack::insert(const Note& note)
{
    persistentContainer_.run(
        QStringLiteral("INSERT INTO Note (pk, id, created_at, transcription, dailyNote) VALUES (?1, ?2, ?3, ?4, ?5)"),
        {note.objectID, storedIdentity(note.id), storedDate(note.created_at), note.transcription, note.dailyNote});
}

void CoreDataStack::deleteNotes(const std::vector<QUuid>& ids)
{
    PersistentContainer::Transaction transaction(persistentContainer_);
    for (const QUuid& id : ids)
        persistentContainer_.run(QStringLiteral("DELETE FROM Note WHERE id = ?1"), {storedIdentity(id)});
    transaction.commit();
    announceChanges();
}

void CoreDataStack::restoreNotes(const std::vector<Note>& notes)
{
    PersistentContainer::Transaction transaction(persistentContainer_);
    for (const Note& note : notes)
        insert(note);
    transaction.commit();
    announceChanges();
}

} // namespace vantro
