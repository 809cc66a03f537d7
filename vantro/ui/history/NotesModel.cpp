#include "vantro/ui/history/NotesModel.h"

#include "base/Error.h"
#include "vantro/ui/history/DayNames.h"

#include <QLocale>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace vantro {

NotesModel::NotesModel(Parts parts) : parts_(std::move(parts)), list_(parts_.store)
{
    connect(&list_, &QAbstractItemModel::modelReset, this, [this] { pick(0); });
    connect(&list_, &QAbstractItemModel::dataChanged, this, &NotesModel::read);
    connect(&list_, &QAbstractItemModel::rowsInserted, this, &NotesModel::read);
    connect(&list_, &QAbstractItemModel::rowsRemoved, this, [this](const QModelIndex&, int first) {
        if (current_.isValid())
            read();
        else
            pick(first);
    });
    connect(&parts_.store, &CoreDataStack::changedAtLarge, this, &NotesModel::read);
    connect(&parts_.audio, &KeptAudio::changed, this, &NotesModel::recordingsChanged);
    pick(0);
}

void NotesModel::pick(int row)
{
    current_ = list_.index(std::min(row, list_.rowCount() - 1));
    read();
}

void NotesModel::read()
{
    const QVariantList before = notes();
    day_.reset();
    notes_.clear();
    parts_.changes.attempt([this] {
        const QDateTime created = current_.data(DailyNoteListModel::CreatedAt).toDateTime();
        if (created.isValid())
            day_ = parts_.store.dailyNote(created.toLocalTime().date());
        if (day_)
            notes_ = parts_.store.notes(*day_);
    });
    if (heardNote() < 0)
        heard_ = {};
    Q_EMIT changed();
    if (notes() != before)
        Q_EMIT notesChanged();
    Q_EMIT recordingsChanged();
    Q_EMIT heardChanged();
}

QString NotesModel::title() const
{
    return day_ ? QLocale().toString(day_->created_at.toLocalTime().date(), QLocale::LongFormat) : QString();
}

QVariantList NotesModel::notes() const
{
    QVariantList result;
    for (const Note& note : notes_)
        result << QVariantMap{{QStringLiteral("time"), timeOfDay(note.created_at)},
                              {QStringLiteral("text"), note.transcription}};
    return result;
}

QVariantList NotesModel::recordings() const
{
    QVariantList result;
    for (const Note& note : notes_)
        result << !parts_.audio.folder().file(note.id).isEmpty();
    return result;
}

int NotesModel::heardNote() const
{
    const auto note = std::ranges::find(notes_, heard_, &Note::id);
    return heard_.isNull() || note == notes_.end() ? -1 : static_cast<int>(note - notes_.begin());
}

void NotesModel::hear(int index)
{
    heard_ = notes_.at(static_cast<std::size_t>(index)).id;
    Q_EMIT heardChanged();
}

void NotesModel::setText(const Note& note, const QString& text)
{
    if (!parts_.store.hasNote(note.id))
        throw Error(tr("The note has been deleted in the meantime."));
    Note changed = note;
    changed.transcription = text;
    parts_.store.updateNote(changed);
}

QCoro::Task<> NotesModel::transcribeHeard(int model)
{
    const int index = heardNote();
    if (index < 0 || parts_.changes.isBusy() || model < 0 || model >= speechModels().size())
        co_return;
    const QPointer<NotesModel> self(this);
    const Note note = notes_[static_cast<std::size_t>(index)];
    const QString name = speechModels().at(model);
    QString text;
    QString problem;
    parts_.changes.setWork(tr("Transcribing with %1...").arg(name));
    try {
        const auto transcribing = parts_.transcribe(model, note.id);
        text = co_await transcribing;
        text = text.trimmed();
        if (text.isEmpty())
            problem = tr("%1 hears nothing in this recording. The text stays as it was.").arg(name);
    } catch (const Error& error) {
        problem = error.localizedDescription();
    }
    if (!self)
        co_return;
    parts_.changes.setWork({});
    parts_.changes.setProblem(problem);
    if (problem.isEmpty() && parts_.changes.attempt([&] { setText(note, text); }))
        parts_.changes.add(tr("The note was transcribed with %1.").arg(name),
                           [this, note] { setText(note, note.transcription); });
}

QCoro::Task<> NotesModel::update()
{
    if (!day_ || isUpdating())
        co_return;
    const QPointer<NotesModel> self(this);
    const DailyNote day = *day_;
    updating_.insert(day.objectID);
    Q_EMIT changed();
    const auto summarizing = parts_.summarize(day);
    const QString problem = co_await summarizing;
    if (!self)
        co_return;
    updating_.remove(day.objectID);
    read();
    parts_.changes.setProblem(problem.isEmpty() ? problem : tr("The summary could not be updated: %1").arg(problem));
}

void NotesModel::copyDay()
{
    QStringList texts{title()};
    if (!summary().isEmpty())
        texts << summary();
    for (const Note& note : notes_)
        texts << timeOfDay(note.created_at) + QLatin1Char('\n') + note.transcription;
    parts_.pasteboard.setString(Pasteboard::Selection::Clipboard, texts.join(QStringLiteral("\n\n")));
}

void NotesModel::copyNote(int index)
{
    parts_.pasteboard.setString(Pasteboard::Selection::Clipboard,
                                notes_.at(static_cast<std::size_t>(index)).transcription);
}

void NotesModel::removeDay()
{
    if (!day_)
        return;
    const DailyNote day = *day_;
    const std::vector<Note> notes = notes_;
    if (!parts_.changes.attempt([&] { parts_.store.deleteDailyNote(day); }, "Error deleting daily note: "))
        return;
    parts_.changes.add(tr("The day was deleted."), [this, day, notes] {
        parts_.store.restoreDailyNote(day, notes);
        pick(std::max(0, list_.rowOf(day.objectID)));
    });
}

void NotesModel::removeNote(int index)
{
    const Note note = notes_.at(static_cast<std::size_t>(index));
    if (!parts_.changes.attempt([&] { parts_.store.deleteNotes({note.id}); }, "Error deleting note: "))
        return;
    parts_.changes.add(tr("The note was deleted."), [this, note] {
        parts_.store.restoreNotes({note});
        pick(std::max(0, list_.rowOf(note.dailyNote)));
    });
}

QString NotesModel::dayName(const QDateTime& time) const
{
    return vantro::dayName(time.toLocalTime().date(), parts_.clock.wallClock().date());
}

} // namespace vantro
