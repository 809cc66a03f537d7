#include "vantro/store/HistoryJobs.h"

#include "vantro/store/AudioFolder.h"
#include "vantro/store/TranscriptionRows.h"

#include <qcoro/qcorofuture.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantro {

namespace {

template <typename Value>
std::vector<Value> pieceOf(const std::vector<Value>& all, std::size_t begin)
{
    const auto from = all.begin() + static_cast<std::ptrdiff_t>(begin);
    const auto rest = std::min(all.size() - begin, HistoryJobs::pieceRows);
    return {from, from + static_cast<std::ptrdiff_t>(rest)};
}

std::vector<qint64> keysBefore(const PersistentContainer& container, const QDateTime& moment)
{
    StoreQuery query = container.run(QStringLiteral("SELECT pk FROM Transcription WHERE created_at < ?1 ORDER BY pk"),
                                     {storedDate(moment)});
    std::vector<qint64> keys;
    while (query.next())
        keys.push_back(query.value(0).toLongLong());
    return keys;
}

void removeRecordings(const PersistentContainer& container, const std::vector<Transcription>& rows)
{
    std::vector<QUuid> ids;
    std::ranges::transform(rows, std::back_inserter(ids), &Transcription::id);
    AudioFolder(container.path()).remove(ids);
}

/// Without the trigger that takes each row out of the index, tables and index are emptied as a whole.
void clearAtOnce(const PersistentContainer& container)
{
    PersistentContainer::Transaction transaction(container);
    const QString trigger = QStringLiteral("TranscriptionToBeRemoved");
    const QString definition =
        container.value(QStringLiteral("SELECT sql FROM sqlite_schema WHERE name = ?1"), {trigger}).toString();
    container.run(QStringLiteral("DROP TRIGGER ") + trigger);
    container.run(QStringLiteral("DELETE FROM Transcription"));
    container.run(QStringLiteral("INSERT INTO TranscriptionIndex (TranscriptionIndex) VALUES ('delete-all')"));
    container.run(definition);
    container.run(QStringLiteral("DELETE FROM Note"));
    container.run(QStringLiteral("DELETE FROM DailyNote"));
    transaction.commit();
    container.run(QStringLiteral("VACUUM"));
    container.run(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
    AudioFolder(container.path()).removeAll();
}

} // namespace

HistoryJobs::HistoryJobs(CoreDataStack& store) : store_(store) {}

HistoryJobs::~HistoryJobs() = default;

/// A connection belongs to its thread.
template <typename Work>
auto HistoryJobs::onStore(Work work)
{
    return executor_.run([path = store_.persistentContainer().path(), work = std::move(work)] {
        PersistentContainer container(path);
        container.load();
        return work(container);
    });
}

QCoro::Task<HistoryJobs::Removed> HistoryJobs::remove(std::vector<QUuid> ids, Progress progress)
{
    const std::weak_ptr<void> alive = alive_;
    Removed removed;
    try {
        const auto finding = onStore([ids](const PersistentContainer& store) { return transcriptionKeys(store, ids); });
        const std::vector<qint64> keys = co_await finding;
        if (alive.expired())
            co_return removed;
        for (std::size_t begin = 0; begin < keys.size(); begin += pieceRows) {
            const auto deleting = onStore([piece = pieceOf(keys, begin)](const PersistentContainer& store) {
                return deleteTranscriptionRows(store, piece);
            });
            std::vector<Transcription> deleted = co_await deleting;
            if (alive.expired())
                co_return removed;
            std::ranges::move(deleted, std::back_inserter(removed.rows));
            progress(removed.rows.size());
        }
    } catch (const Error& error) {
        removed.problem = error.localizedDescription();
    }
    if (!alive.expired())
        store_.announceChanges();
    co_return removed;
}

QCoro::Task<> HistoryJobs::restore(std::vector<Transcription> rows, Progress progress)
{
    const std::weak_ptr<void> alive = alive_;
    for (std::size_t begin = 0; begin < rows.size(); begin += pieceRows) {
        const auto restoring = onStore([piece = pieceOf(rows, begin)](const PersistentContainer& store) {
            restoreTranscriptionRows(store, piece);
        });
        co_await restoring;
        if (alive.expired())
            co_return;
        progress(std::min(begin + pieceRows, rows.size()));
    }
    store_.announceChanges();
}

QCoro::Task<int> HistoryJobs::removeBefore(QDateTime moment)
{
    const std::weak_ptr<void> alive = alive_;
    const auto finding = onStore([moment](const PersistentContainer& store) { return keysBefore(store, moment); });
    const std::vector<qint64> keys = co_await finding;
    if (alive.expired())
        co_return 0;
    for (std::size_t begin = 0; begin < keys.size(); begin += pieceRows) {
        const auto deleting = onStore([piece = pieceOf(keys, begin)](const PersistentContainer& store) {
            removeRecordings(store, deleteTranscriptionRows(store, piece));
        });
        co_await deleting;
        if (alive.expired())
            co_return 0;
    }
    if (!keys.empty())
        store_.announceChanges();
    co_return static_cast<int>(keys.size());
}

QCoro::Task<> HistoryJobs::clear()
{
    const auto clearing = onStore(clearAtOnce);
    const std::weak_ptr<void> alive = alive_;
    co_await clearing;
    if (!alive.expired())
        store_.announceChanges();
}

QCoro::Task<std::vector<Transcription>> HistoryJobs::read(std::vector<QUuid> ids)
{
    const auto reading = onStore(
        [ids](const PersistentContainer& store) { return transcriptionRows(store, transcriptionKeys(store, ids)); });
    std::vector<Transcription> rows = co_await reading;
    co_return rows;
}

QCoro::Task<> HistoryJobs::exportTo(QString path, std::vector<QUuid> ids)
{
    const auto exporting = onStore([path, ids](const PersistentContainer& store) {
        const auto rows = transcriptionRows(store, transcriptionKeys(store, ids));
        exportTranscriptions([&rows](const auto& visit) { std::ranges::for_each(rows, visit); }, exportFormatOf(path),
                             path);
    });
    co_await exporting;
}

} // namespace vantro
