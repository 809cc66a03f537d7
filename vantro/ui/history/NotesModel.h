#pragma once

#include "platform/Pasteboard.h"
#include "vantro/store/DailyNoteListModel.h"
#include "vantro/store/KeptAudio.h"
#include "vantro/ui/history/HistoryChanges.h"

#include <QObject>
#include <QPersistentModelIndex>
#include <QSet>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>
#include <vector>

namespace vantro {

/// The view model of the notes: the days, and the summary and notes of the current one. Main thread; lives as long as
/// its window.
class NotesModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QAbstractListModel* list READ list CONSTANT)
    Q_PROPERTY(int currentRow READ currentRow NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(bool isUpdating READ isUpdating NOTIFY changed)
    Q_PROPERTY(QVariantList notes READ notes NOTIFY notesChanged)
    Q_PROPERTY(QVariantList recordings READ recordings NOTIFY recordingsChanged)
    Q_PROPERTY(QUuid heard READ heard NOTIFY heardChanged)
    Q_PROPERTY(int heardNote READ heardNote NOTIFY heardChanged)
    Q_PROPERTY(QStringList speechModels READ speechModels NOTIFY heardChanged)
public:
    struct Parts
    {
        CoreDataStack& store;
        KeptAudio& audio;
        Pasteboard& pasteboard;
        HistoryChanges& changes;
        Clock& clock;
        /// Has a day's summary written anew; see CoreDataStack::regenerateSummary().
        std::function<QCoro::Task<QString>(DailyNote)> summarize;
        std::function<QStringList()> speechModels; ///< names of those that are there
        /// Transcribes a note's kept recording with the model of that place; throws Error.
        std::function<QCoro::Task<QString>(int, QUuid)> transcribe;
    };

    /// All parts must outlive the model.
    explicit NotesModel(Parts parts);

    [[nodiscard]] QAbstractListModel* list() { return &list_; }
    [[nodiscard]] int currentRow() const { return current_.isValid() ? current_.row() : -1; }
    /// The current day's date.
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString summary() const { return day_ ? day_->formatted : QString(); }
    /// A summary of the current day has been asked for, but is not there yet.
    [[nodiscard]] bool isUpdating() const { return day_ && updating_.contains(day_->objectID); }
    /// Of the current day, oldest first: "time", "text".
    [[nodiscard]] QVariantList notes() const;
    /// Whether each of them has a recording.
    [[nodiscard]] QVariantList recordings() const;
    /// The note whose recording can be heard; null without any.
    [[nodiscard]] QUuid heard() const { return heard_; }
    /// Its place in notes(); -1 without any.
    [[nodiscard]] int heardNote() const;
    Q_INVOKABLE void hear(int index);
    [[nodiscard]] QStringList speechModels() const { return parts_.speechModels(); }
    /// Has the heard note's recording transcribed anew by the model at that place of speechModels().
    Q_INVOKABLE void transcribeAgain(int model) { transcribeHeard(model); }

    Q_INVOKABLE void pick(int row);
    Q_INVOKABLE void regenerate() { update(); }
    /// The summary and all notes, to the clipboard.
    Q_INVOKABLE void copyDay();
    Q_INVOKABLE void copyNote(int index);
    Q_INVOKABLE void removeDay();
    Q_INVOKABLE void removeNote(int index);
    /// For the rows of the list.
    Q_INVOKABLE QString dayName(const QDateTime& time) const;

Q_SIGNALS:
    void changed();
    void notesChanged();
    void recordingsChanged();
    void heardChanged();

private:
    QCoro::Task<> update();
    QCoro::Task<> transcribeHeard(int model);
    void setText(const Note& note, const QString& text);
    void read();

    Parts parts_;
    DailyNoteListModel list_;
    QPersistentModelIndex current_;
    std::optional<DailyNote> day_;
    std::vector<Note> notes_;
    QUuid heard_;
    QSet<qint64> updating_; ///< object IDs of days
};

} // namespace vantro
