#pragma once

#include "base/Clock.h"
#include "vantro/ai/FormatRequestServicing.h"
#include "vantro/ai/TranscriptionStoring.h"
#include "vantro/store/Entities.h"
#include "vantro/store/PersistentContainer.h"
#include "vantro/store/StoreWatch.h"
#include "vantro/store/TranscriptionFetch.h"

#include <QDate>
#include <QObject>
#include <qcoro/qcorotask.h>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace vantro {

/// How much is stored.
struct StoredAmount
{
    int dictations = 0;
    int notes = 0;
    qint64 bytes = 0; ///< on the disk
};

/// The history: dictations, and each day's notes with their summary. Main thread. Changes are durable when an operation
/// returns; an operation that throws StoreError changes nothing.
class CoreDataStack final : public QObject, public TranscriptionStoring
{
    Q_OBJECT
public:
    /// "vantro/MainModel.sqlite" below the XDG data folder.
    static QString standardPath();

    explicit CoreDataStack(Clock& clock, const QString& path = standardPath());
    /// @p inMemory: for previews and temporary stores.
    CoreDataStack(bool inMemory, Clock& clock);
    ~CoreDataStack() override;

    /// Opens the store and migrates it to the current schema. Must be called first; throws PersistentStoreError.
    void loadPersistentStores();

    QUuid saveTranscription(const QString& transcription, const QString& formatted, ProcessingMode mode) override;
    QUuid saveTranscription(const QString& transcription, ProcessingMode mode) override;
    void updateFormatted(const QUuid& id, const QString& formatted) override;
    void setAside(const QUuid& id, const QString& answer, const QString& reason) override;

    [[nodiscard]] std::optional<Transcription> transcription(const QUuid& id) const;
    /// At most @p limit IDs that start with @p prefix.
    [[nodiscard]] std::vector<QUuid> transcriptionIDs(const QString& prefix, int limit) const;
    /// All or nothing; unknown IDs are ignored. Returns what was deleted.
    std::vector<Transcription> deleteTranscriptions(const std::vector<QUuid>& ids);
    /// Brings back what was deleted, to its place in time. All or nothing.
    void restoreTranscriptions(const std::vector<Transcription>& rows);
    /// Stores the mode and the texts of @p row; does nothing when it no longer exists.
    void updateTranscription(const Transcription& row);

    [[nodiscard]] StoredAmount amount() const;
    /// Dictations that are older.
    [[nodiscard]] int countBefore(const QDateTime& moment) const;

    /// Adds a note to today's DailyNote, creating it if necessary.
    QCoro::Task<QUuid> addNote(QString transcription) override;
    /// Oldest first.
    [[nodiscard]] std::vector<Note> todaysNotes() const;
    /// The prompt for summaries; called for each one.
    void setSummaryPrompt(std::function<QString()> prompt) { summaryPrompt_ = std::move(prompt); }
    /// Has @p service summarise today's notes and stores the result. Never throws: failures are printed and the
    /// previous summary is kept.
    QCoro::Task<> summarizeToday(std::shared_ptr<FormatRequestServicing> service) override;
    /// The same for any day. Returns why there is no new summary; nothing when it is stored.
    QCoro::Task<QString> regenerateSummary(DailyNote day, std::shared_ptr<FormatRequestServicing> service);

    /// @p date is in the clock's time zone. nullopt without notes.
    [[nodiscard]] std::optional<DailyNote> dailyNote(QDate date) const;
    /// Newest first.
    [[nodiscard]] std::vector<DailyNote> dailyNotes(FetchRange range, int limit) const;
    [[nodiscard]] int countDailyNotes(FetchRange range) const;
    /// Oldest first.
    [[nodiscard]] std::vector<Note> notes(const DailyNote& day) const;
    [[nodiscard]] std::vector<QUuid> noteIDs(const QString& prefix, int limit) const;
    [[nodiscard]] bool hasNote(const QUuid& id) const;
    /// Stores the text of @p note; does nothing when it no longer exists.
    void updateNote(const Note& note);
    /// Also deletes its notes.
    void deleteDailyNote(const DailyNote& day);
    /// Brings back a deleted day with its notes.
    void restoreDailyNote(const DailyNote& day, const std::vector<Note>& notes);
    /// Keeps the day and its summary.
    void deleteNotes(const std::vector<QUuid>& ids);
    /// Brings back deleted notes, unless their day is gone.
    void restoreNotes(const std::vector<Note>& notes);

    /// For migrations and list models. After changes made through it, call announceChanges().
    [[nodiscard]] const PersistentContainer& persistentContainer() const { return persistentContainer_; }
    void announceChanges();
    /// Makes changedAtLarge() also report changes by other processes.
    void watchOtherProcesses();

Q_SIGNALS:
    /// One row was inserted, updated or deleted.
    void transcriptionChanged(qint64 objectID);
    /// The same for a day or one of its notes.
    void dailyNoteChanged(qint64 objectID);
    /// A note has been stored by this process.
    void noteAdded(const QString& transcription);
    /// Many rows changed, or another process changed any.
    void changedAtLarge();

private:
    struct Day
    {
        QDateTime start;
        QDateTime end;
    };

    [[nodiscard]] Day day(QDate date) const;
    QUuid insert(const QString& transcription, const QString& formatted, ProcessingMode mode);
    void announce(const std::vector<Transcription>& changed);
    void followNewFile();
    qint64 todaysDailyNote(const QDateTime& now);
    [[nodiscard]] std::optional<qint64> dailyNoteWithin(const Day& day) const;
    [[nodiscard]] std::vector<Note> notesOf(qint64 dailyNote) const;
    [[nodiscard]] std::vector<QUuid> identities(const QString& entity, const QString& prefix, int limit) const;
    void insert(const Note& note);
    void setSummary(qint64 dailyNote, const QString& summary);
    void summaryStored(qint64 dailyNote, std::size_t noteCount);

    Clock& clock_;
    PersistentContainer persistentContainer_;
    std::function<QString()> summaryPrompt_{[] {
        return QString();
    }};
    std::unique_ptr<StoreWatch> watch_;
    bool isWatching_ = false; ///< wanted; watch_ may have failed
};

/// Inserts a dictation unless its ID already exists; returns its key, 0 if it does.
qint64 insertTranscription(const PersistentContainer& container, const Transcription& row);

} // namespace vantro
