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

/// The history: dictations, and the notes of each day with their summary. Main thread. What an operation has stored is
/// on the disk when it returns; where it throws a StoreError nothing of it is stored.
class CoreDataStack final : public QObject, public TranscriptionStoring
{
    Q_OBJECT
public:
    /// "vantro/MainModel.sqlite" below the XDG data folder.
    static QString standardPath();

    explicit CoreDataStack(Clock& clock, const QString& path = standardPath());
    /// @p inMemory: for previews and throw-away stores.
    CoreDataStack(bool inMemory, Clock& clock);
    ~CoreDataStack() override;

    /// Opens the store and takes over what earlier versions kept in other files. Before everything else; throws
    /// PersistentStoreError.
    void loadPersistentStores();

    void saveTranscription(const QString& transcription, const QString& formatted, ProcessingMode mode) override;
    QUuid saveTranscription(const QString& transcription, ProcessingMode mode) override;
    void updateFormatted(const QUuid& id, const QString& formatted) override;

    [[nodiscard]] std::optional<Transcription> transcription(const QUuid& id) const;
    /// The identities that begin with @p prefix, at most @p limit.
    [[nodiscard]] std::vector<QUuid> transcriptionIDs(const QString& prefix, int limit) const;
    /// All or none; what is not there is passed over.
    void deleteTranscriptions(const std::vector<QUuid>& ids);

    /// Files @p transcription under today, which is made when this is its first note.
    QCoro::Task<> addNote(QString transcription) override;
    /// Oldest first.
    [[nodiscard]] std::vector<Note> todaysNotes() const;
    /// The instruction by which a day's notes are condensed, asked for at each summary.
    void setSummaryPrompt(std::function<QString()> prompt) { summaryPrompt_ = std::move(prompt); }
    /// Has @p service condense today's notes and keeps that as the day's summary. Never throws: what fails is printed,
    /// and the former summary stays.
    QCoro::Task<> summarizeToday(std::shared_ptr<FormatRequestServicing> service) override;
    /// The same for a chosen day.
    QCoro::Task<> regenerateSummary(DailyNote day, std::shared_ptr<FormatRequestServicing> service);

    /// The day of the calendar in the clock's time zone. Absent without notes.
    [[nodiscard]] std::optional<DailyNote> dailyNote(QDate date) const;
    /// Newest first.
    [[nodiscard]] std::vector<DailyNote> dailyNotes(FetchRange range, int limit) const;
    [[nodiscard]] int countDailyNotes(FetchRange range) const;
    /// Oldest first.
    [[nodiscard]] std::vector<Note> notes(const DailyNote& day) const;
    [[nodiscard]] std::vector<QUuid> noteIDs(const QString& prefix, int limit) const;
    /// With all its notes.
    void deleteDailyNote(const DailyNote& day);
    /// The day stays, with its summary.
    void deleteNotes(const std::vector<QUuid>& ids);

    /// For repairs and for lists, whose changes the stack has to hear of.
    [[nodiscard]] const PersistentContainer& persistentContainer() const { return persistentContainer_; }
    void announceChanges();
    /// From now on changedAtLarge() tells of other processes' changes too.
    void watchOtherProcesses();

Q_SIGNALS:
    /// One row was stored, changed or deleted.
    void transcriptionChanged(qint64 objectID);
    /// A day, or one of its notes.
    void dailyNoteChanged(qint64 objectID);
    /// Many rows of this process, or any of another one.
    void changedAtLarge();

private:
    struct Day
    {
        QDateTime start;
        QDateTime end;
    };

    [[nodiscard]] Day day(QDate date) const;
    QUuid insert(const QString& transcription, const QString& formatted, ProcessingMode mode);
    qint64 todaysDailyNote(const QDateTime& now);
    [[nodiscard]] std::optional<qint64> dailyNoteWithin(const Day& day) const;
    [[nodiscard]] std::vector<Note> notesOf(qint64 dailyNote) const;
    [[nodiscard]] std::vector<QUuid> identities(const QString& entity, const QString& prefix, int limit) const;
    void setSummary(qint64 dailyNote, const QString& summary);
    void summaryStored(qint64 dailyNote, std::size_t noteCount);

    Clock& clock_;
    PersistentContainer persistentContainer_;
    std::function<QString()> summaryPrompt_{[] {
        return QString();
    }};
    std::unique_ptr<StoreWatch> watch_;
};

/// Stores a dictation made at @p created_at, unless one with this identity is there; answers its place, 0 for none.
qint64 insertTranscription(const PersistentContainer& container, const Transcription& row);

} // namespace vantro
