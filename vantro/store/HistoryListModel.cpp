#include "vantro/store/HistoryListModel.h"

#include "vantro/store/SearchText.h"

#include <algorithm>

namespace vantro {

namespace {

/// Of a line before the first hit.
constexpr qsizetype leadIn = 24;

QString firstLine(const QString& text)
{
    const QString trimmed = text.trimmed();
    return trimmed.left(trimmed.indexOf(QLatin1Char('\n'))).trimmed();
}

/// The line that has the first hit, cut off before it if that would be out of sight.
QString lineWithHit(const QString& text, const SearchQuery& query)
{
    const auto hits = searchHits(text, query);
    if (hits.empty())
        return firstLine(text);
    const qsizetype hit = hits.front().begin;
    const qsizetype lineStart = text.lastIndexOf(QLatin1Char('\n'), hit) + 1;
    qsizetype start = lineStart;
    if (hit - lineStart > leadIn)
        start = std::min(text.indexOf(QLatin1Char(' '), hit - leadIn) + 1, hit);
    const QString line = text.mid(start, TranscriptionFetch::excerptLength);
    return (start > lineStart ? QStringLiteral("\u2026 ") : QString()) + firstLine(line);
}

QString dayOf(const QDateTime& time)
{
    return time.toLocalTime().date().toString(Qt::ISODate);
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
    return {{Identifier, "identifier"}, {CreatedAt, "created_at"},    {Mode, "processingMode"},
            {FirstLine, "firstLine"},   {IsFormatted, "isFormatted"}, {Day, "day"}};
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

void HistoryListModel::setUnrewritten(bool isUnrewritten)
{
    HistoryFilter filter = filter_;
    filter.isUnrewritten = isUnrewritten;
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
    const TranscriptionFetch fetch(store_.persistentContainer(), filter_);
    const SearchQuery query(filter_.search);
    std::vector<Row> rows;
    if (query.isEmpty()) {
        for (const auto& row : fetch.excerpts(range, limit))
            rows.push_back({row.objectID,
                            {row.id, row.created_at, row.processingMode, firstLine(row.text), row.isFormatted,
                             dayOf(row.created_at)}});
        return rows;
    }
    for (const auto& row : fetch.rows(range, limit))
        rows.push_back({row.objectID,
                        {row.id, row.created_at, row.processingMode, lineWithHit(row.text(), query),
                         !row.formatted.isEmpty(), dayOf(row.created_at)}});
    return rows;
}

int HistoryListModel::count(FetchRange range) const
{
    return TranscriptionFetch(store_.persistentContainer(), filter_).count(range);
}

} // namespace vantro
