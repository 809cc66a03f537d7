// What can be done with the dictations that are chosen.
#include "base/Error.h"
#include "base/Logger.h"
#include "vantro/ui/history/HistoryModel.h"

#include <QLocale>
#include <QPointer>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

/// More are worked on beside the main thread.
constexpr qsizetype manyRows = 100;

QString inFigures(std::size_t count)
{
    return QLocale().toString(static_cast<qulonglong>(count));
}

} // namespace

void HistoryModel::copy(const QString& shownText)
{
    withTexts(shownText,
              [this](const QString& text) { parts_.pasteboard.setString(Pasteboard::Selection::Clipboard, text); });
}

void HistoryModel::paste(const QString& shownText)
{
    withTexts(shownText, parts_.paste);
}

/// Calls @p use with @p shownText while one is chosen, otherwise with the texts of all, oldest first.
QCoro::Task<> HistoryModel::withTexts(QString shownText, std::function<void(QString)> use)
{
    if (chosen_.isEmpty())
        co_return;
    QString text = shownText;
    if (chosen_.size() > 1) {
        const QPointer<HistoryModel> self(this);
        QStringList texts;
        QString problem;
        try {
            const auto reading = parts_.jobs.read(chosen());
            const std::vector<Transcription> rows = co_await reading;
            for (const Transcription& row : rows)
                texts << row.text();
        } catch (const Error& error) {
            problem = error.localizedDescription();
        }
        if (!self)
            co_return;
        parts_.changes.setProblem(problem);
        if (!problem.isEmpty())
            co_return;
        text = texts.join(QStringLiteral("\n\n"));
    }
    use(text);
}

void HistoryModel::exportChosen()
{
    if (chosen_.isEmpty())
        return;
    const QString name = tr("Dictations") + QStringLiteral(".md");
    parts_.chooseFile(name, [self = QPointer<HistoryModel>(this)](const QString& path) {
        if (self)
            self->exportTo(path);
    });
}

QCoro::Task<> HistoryModel::exportTo(QString path)
{
    const QPointer<HistoryModel> self(this);
    QString problem;
    parts_.changes.setWork(tr("Exporting..."));
    try {
        const auto exporting = parts_.jobs.exportTo(path, chosen());
        co_await exporting;
    } catch (const Error& error) {
        problem = error.localizedDescription();
    }
    if (!self)
        co_return;
    parts_.changes.setWork({});
    parts_.changes.setProblem(problem);
}

void HistoryModel::remove()
{
    if (chosen_.isEmpty() || parts_.changes.isBusy())
        return;
    if (chosen_.size() > manyRows) {
        removeMany();
        return;
    }
    const QPersistentModelIndex next = rowAfterChosen();
    std::vector<Transcription> deleted;
    const QScopedValueRollback<bool> many(isChangingMany_, true);
    const auto change = [&] {
        deleted = parts_.store.deleteTranscriptions(chosen());
    };
    if (!parts_.changes.attempt(change, chosen_.size() == 1 ? "Error deleting transcription: "
                                                            : "Error deleting transcriptions: "))
        return;
    parts_.changes.add(deleted.size() == 1 ? tr("The dictation was deleted.")
                                           : tr("%1 dictations were deleted.").arg(inFigures(deleted.size())),
                       [this, deleted] { restore(deleted); });
    pick(next.isValid() ? next.row() : 0);
}

QCoro::Task<> HistoryModel::removeMany()
{
    const QPointer<HistoryModel> self(this);
    const std::vector<QUuid> ids = chosen();
    const auto tell = [self, all = inFigures(ids.size())](std::size_t done) {
        if (self)
            self->parts_.changes.setWork(tr("Deleting: %1 of %2").arg(inFigures(done), all));
    };
    isChangingMany_ = true;
    chosen_.clear();
    makeCurrent(-1);
    tell(0);
    const auto removing = parts_.jobs.remove(ids, tell);
    const HistoryJobs::Removed removed = co_await removing;
    if (!self)
        co_return;
    isChangingMany_ = false;
    parts_.changes.setWork({});
    parts_.changes.setProblem(removed.problem);
    if (!removed.problem.isEmpty())
        printLine(QStringLiteral("Error deleting transcriptions: ") + removed.problem);
    if (!removed.rows.empty())
        parts_.changes.addLong(tr("%1 dictations were deleted.").arg(inFigures(removed.rows.size())),
                               [this, rows = removed.rows] { return restoreMany(rows); });
    pick(0);
}

QCoro::Task<> HistoryModel::restoreMany(std::vector<Transcription> deleted)
{
    const QPointer<HistoryModel> self(this);
    const auto tell = [self, all = inFigures(deleted.size())](std::size_t done) {
        if (self)
            self->parts_.changes.setWork(tr("Bringing back: %1 of %2").arg(inFigures(done), all));
    };
    isChangingMany_ = true;
    tell(0);
    const auto end = qScopeGuard([self] {
        if (!self)
            return;
        self->isChangingMany_ = false;
        self->parts_.changes.setWork({});
    });
    const auto restoring = parts_.jobs.restore(deleted, tell);
    co_await restoring;
    if (self)
        choose(deleted);
}

void HistoryModel::restore(const std::vector<Transcription>& deleted)
{
    const QScopedValueRollback<bool> many(isChangingMany_, true);
    parts_.store.restoreTranscriptions(deleted);
    choose(deleted);
}

void HistoryModel::choose(const std::vector<Transcription>& rows)
{
    const auto newest = std::ranges::max_element(rows, {}, &Transcription::objectID);
    const int row = newest != rows.end() ? list_.rowOf(newest->objectID) : -1;
    if (row < 0)
        return;
    pick(row);
    for (const Transcription& each : rows)
        chosen_.insert(each.id);
    Q_EMIT selectionChanged();
}

void HistoryModel::edit(bool raw)
{
    if (!shown_ || chosen_.size() != 1)
        return;
    edited_ = shown_;
    editsRaw_ = raw || !isFormatted();
    Q_EMIT selectionChanged();
}

void HistoryModel::endEdit(const QString& text)
{
    if (!edited_)
        return;
    const Transcription before = *std::exchange(edited_, std::nullopt);
    Transcription after = before;
    (editsRaw_ ? after.transcription : after.formatted) = text.trimmed();
    if (!text.trimmed().isEmpty() && after.text() != before.text())
        change(before, after, tr("The text was changed."));
    Q_EMIT selectionChanged();
}

void HistoryModel::cancelEdit()
{
    edited_.reset();
    Q_EMIT selectionChanged();
}

/// Stores a dictation's new text, which can be taken back.
bool HistoryModel::change(const Transcription& from, const Transcription& to, const QString& done)
{
    const auto store = [this](const Transcription& row) {
        if (!parts_.store.transcription(row.id))
            throw Error(tr("The dictation has been deleted in the meantime."));
        parts_.store.updateTranscription(row);
    };
    if (!parts_.changes.attempt([&] { store(to); }))
        return false;
    parts_.changes.add(done, [store, from] { store(from); });
    return true;
}

QStringList HistoryModel::rewritingModes() const
{
    QStringList names;
    for (const ProcessingMode mode : parts_.rewritingModes())
        names << parts_.modeName(mode);
    return names;
}

QCoro::Task<> HistoryModel::rewriteCurrent(int index)
{
    const auto modes = parts_.rewritingModes();
    if (!shown_ || chosen_.size() != 1 || parts_.changes.isBusy() || index < 0 ||
        index >= static_cast<int>(modes.size()))
        co_return;
    const QPointer<HistoryModel> self(this);
    const Transcription before = *shown_;
    const ProcessingMode mode = modes[static_cast<std::size_t>(index)];
    const QString name = parts_.modeName(mode);
    Transcription after = before;
    QString problem;
    parts_.changes.setWork(tr("Rewriting with %1...").arg(name));
    try {
        const auto rewriting = parts_.rewrite(mode, before.transcription);
        after.formatted = co_await rewriting;
        after.processingMode = rawValue(mode);
    } catch (const Error& error) {
        problem = error.localizedDescription();
    }
    if (!self)
        co_return;
    parts_.changes.setWork({});
    if (problem.isEmpty())
        change(before, after, tr("The dictation was rewritten with %1.").arg(name));
    else
        parts_.changes.setProblem(problem);
}

/// What a language model has made of the former text is gone with it; rules apply to the new one.
Transcription HistoryModel::heardAgain(const Transcription& before, const QString& text) const
{
    Transcription after = before;
    after.transcription = text;
    const auto mode = processingModeFromRawValue(before.processingMode);
    after.formatted = mode ? parts_.cleaned(*mode, text).value_or(QString()) : QString();
    after.setAside.clear();
    after.setAsideReason.clear();
    return after;
}

QCoro::Task<> HistoryModel::transcribeCurrent(int index)
{
    if (!shown_ || chosen_.size() != 1 || parts_.changes.isBusy() || index < 0 || index >= speechModels().size())
        co_return;
    const QPointer<HistoryModel> self(this);
    const Transcription before = *shown_;
    const QString name = speechModels().at(index);
    QString text;
    QString problem;
    parts_.changes.setWork(tr("Transcribing with %1...").arg(name));
    try {
        const auto transcribing = parts_.transcribe(index, before.id);
        text = co_await transcribing;
    } catch (const Error& error) {
        problem = error.localizedDescription();
    }
    if (!self)
        co_return;
    parts_.changes.setWork({});
    if (problem.isEmpty() && text.trimmed().isEmpty())
        problem = tr("%1 hears nothing in this recording. The text stays as it was.").arg(name);
    if (problem.isEmpty())
        change(before, heardAgain(before, text), tr("The dictation was transcribed with %1.").arg(name));
    else
        parts_.changes.setProblem(problem);
}

} // namespace vantro
