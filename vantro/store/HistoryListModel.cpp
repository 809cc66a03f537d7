#include "vantro/store/HistoryListModel.h"

namespace vantro {

namespace {

QString firstLine(const QString& text)
{
    const QString trimmed = text.trimmed();
    return trimmed.left(trimmed.indexOf(QLatin1Char('\n'))).trimmed();
}

} // namespace

HistoryListModel::HistoryListModel(CoreDataStack& store, QObject* parent) : PagedListModel(parent), store_(store)
{
    connect(&store, &CoreDataStack::transcriptionChanged, this, &HistoryListModel::rowChanged);
    connect(&store, &CoreDataStack::changedAtLarge, this, &HistoryListModel::anyRowChanged);
    store.watchOtherProcesses();
    reload();
}

QHash<int, QByteArray> HistoryListModel::roleNames() const
{
    return {{Identifier, "identifier"},
            {CreatedAt, "created_at"},
            {Mode, "processingMode"},
            {FirstLine, "firstLine"},
            {IsFormatted, "isFormatted"}};
}

void HistoryListModel::setSearchText(const QString& text)
{
    HistoryFilter filter = filter_;
    filter.search = text;
    setFilter(filter);
}

QString HistoryListModel::mode() const
{
    return filter_.mode ? rawValue(*filter_.mode) : QString();
}

void HistoryListModel::setMode(const QString& mode)
{
    HistoryFilter filter = filter_;
    filter.mode = processingModeFromRawValue(mode);
    setFilter(filter);
}

void HistoryListModel::setSince(const QDateTime& since)
{
    HistoryFilter filter = filter_;
    filter.since = since;
    setFilter(filter);
}

void HistoryListModel::setFilter(const HistoryFilter& filter)
{
    if (filter == filter_)
        return;
    filter_ = filter;
    reload();
    Q_EMIT filterChanged();
}

std::vector<PagedListModel::Row> HistoryListModel::read(FetchRange range, int limit) const
{
    std::vector<Row> rows;
    for (const auto& row : TranscriptionFetch(store_.persistentContainer(), filter_).excerpts(range, limit))
        rows.push_back(
            {row.objectID, {row.id, row.created_at, row.processingMode, firstLine(row.text), row.isFormatted}});
    return rows;
}

int HistoryListModel::count(FetchRange range) const
{
    return TranscriptionFetch(store_.persistentContainer(), filter_).count(range);
}

} // namespace vantro
