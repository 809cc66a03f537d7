#include "vantro/ui/history/HistoryModel.h"

#include "base/Error.h"

#include <QLocale>

#include <utility>

namespace vantro {

HistoryModel::HistoryModel(CoreDataStack& store, Pasteboard& pasteboard)
    : store_(store)
    , pasteboard_(pasteboard)
    , list_(store)
{
    connect(&list_, &HistoryListModel::filterChanged, this, &HistoryModel::searchChanged);
}

template <typename Change>
void HistoryModel::attempt(Change change)
{
    problem_.clear();
    try {
        change();
    } catch (const Error& error) {
        problem_ = error.localizedDescription();
    }
    Q_EMIT problemChanged();
}

void HistoryModel::setSearch(const QString& text)
{
    list_.setSearchText(text);
}

void HistoryModel::select(const QUuid& identifier)
{
    attempt([&] { selection_ = store_.transcription(identifier); });
    Q_EMIT selectionChanged();
}

QString HistoryModel::details() const
{
    if (!selection_)
        return {};
    const QString time = QLocale().toString(selection_->created_at.toLocalTime(), QLocale::LongFormat);
    return selection_->processingMode.isEmpty() ? time
                                                : time + QStringLiteral("  \u00B7  ") + selection_->processingMode;
}

void HistoryModel::copy(const QString& text)
{
    pasteboard_.setString(Pasteboard::Selection::Clipboard, text);
}

void HistoryModel::remove()
{
    if (!selection_)
        return;
    attempt([this] {
        store_.deleteTranscriptions({selection_->id});
        deleted_ = std::exchange(selection_, std::nullopt);
    });
    Q_EMIT selectionChanged();
    Q_EMIT undoChanged();
}

void HistoryModel::undo()
{
    if (!deleted_)
        return;
    attempt([this] {
        insertTranscription(store_.persistentContainer(), *deleted_);
        store_.announceChanges();
        selection_ = std::exchange(deleted_, std::nullopt);
    });
    Q_EMIT selectionChanged();
    Q_EMIT undoChanged();
}

QString HistoryModel::shortTime(const QDateTime& time) const
{
    const QDateTime local = time.toLocalTime();
    const QLocale locale;
    return local.date() == QDate::currentDate() ? locale.toString(local.time(), QLocale::ShortFormat)
                                                : locale.toString(local.date(), QLocale::ShortFormat);
}

} // namespace vantro
