#include "vantro/store/DailyNoteListModel.h"

namespace vantro {

DailyNoteListModel::DailyNoteListModel(CoreDataStack& store, QObject* parent) : PagedListModel(parent), store_(store)
{
    connect(&store, &CoreDataStack::dailyNoteChanged, this, &DailyNoteListModel::rowChanged);
    connect(&store, &CoreDataStack::changedAtLarge, this, &DailyNoteListModel::anyRowChanged);
    store.watchOtherProcesses();
    reload();
}

QHash<int, QByteArray> DailyNoteListModel::roleNames() const
{
    return {{Identifier, "identifier"}, {CreatedAt, "created_at"}, {Summary, "formatted"}, {NoteCount, "noteCount"}};
}

std::vector<PagedListModel::Row> DailyNoteListModel::read(FetchRange range, int limit) const
{
    std::vector<Row> rows;
    for (const DailyNote& day : store_.dailyNotes(range, limit))
        rows.push_back({day.objectID, {day.id, day.created_at, day.formatted, day.noteCount}});
    return rows;
}

int DailyNoteListModel::count(FetchRange range) const
{
    return store_.countDailyNotes(range);
}

} // namespace vantro
