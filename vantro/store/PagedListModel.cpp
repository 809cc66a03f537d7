#include "vantro/store/PagedListModel.h"

#include "vantro/store/StoreError.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace vantro {

namespace {

constexpr qint64 newestEnd = std::numeric_limits<qint64>::max();
constexpr qint64 oldestEnd = std::numeric_limits<qint64>::min();
/// The list is reset if more rows than this are added to a page at once.
constexpr int mostRowsAdded = 4 * PagedListModel::pageRows;

} // namespace

PagedListModel::PagedListModel(QObject* parent) : QAbstractListModel(parent) {}

int PagedListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : firstRowOf(pages_.size());
}

int PagedListModel::firstRowOf(std::size_t page) const
{
    int rows = 0;
    for (std::size_t i = 0; i < page; ++i)
        rows += pages_[i].count;
    return rows;
}

QVariant PagedListModel::data(const QModelIndex& index, int role) const
{
    int row = index.row();
    auto page = pages_.begin();
    while (page != pages_.end() && row >= page->count)
        row -= page++->count;
    if (row < 0 || page == pages_.end() || role < Qt::UserRole)
        return {};
    try {
        const auto& rows = rowsOf(*page);
        // Another process may just have deleted the row; the notification follows.
        if (static_cast<std::size_t>(row) >= rows.size())
            return {};
        return rows[static_cast<std::size_t>(row)].values.value(role - Qt::UserRole);
    } catch (const StoreError& error) {
        logger_.error(error.localizedDescription());
        return {};
    }
}

const std::vector<PagedListModel::Row>& PagedListModel::rowsOf(Page& page) const
{
    page.lastUse = ++uses_;
    if (!page.rows) {
        page.rows = read(page.range, page.count);
        dropLeastUsed();
    }
    return *page.rows;
}

void PagedListModel::dropLeastUsed() const
{
    if (std::ranges::count_if(pages_, [](const Page& page) { return page.rows.has_value(); }) <= keptPages)
        return;
    const auto age = [](const Page& page) {
        return page.rows ? page.lastUse : std::numeric_limits<quint64>::max();
    };
    std::ranges::min_element(pages_, {}, age)->rows.reset();
}

int PagedListModel::keptRows() const
{
    std::size_t rows = 0;
    for (const Page& page : pages_)
        rows += page.rows ? page.rows->size() : 0;
    return static_cast<int>(rows);
}

int PagedListModel::rowOf(qint64 objectID) const
{
    const auto page = std::ranges::find_if(pages_, [objectID](const Page& candidate) {
        return candidate.range.oldest <= objectID && objectID <= candidate.range.newest;
    });
    try {
        if (page == pages_.end() || count({objectID, objectID}) == 0)
            return -1;
        return firstRowOf(static_cast<std::size_t>(page - pages_.begin())) + rowsNewerThan(objectID, *page);
    } catch (const StoreError& error) {
        logger_.error(error.localizedDescription());
        return -1;
    }
}

bool PagedListModel::canFetchMore(const QModelIndex& parent) const
{
    return !parent.isValid() && !isComplete_;
}

FetchRange PagedListModel::behindLastPage() const
{
    return {pages_.empty() ? newestEnd : pages_.back().range.oldest - 1, oldestEnd};
}

void PagedListModel::fetchMore(const QModelIndex& parent)
{
    // Slots may request more rows during a change.
    if (!canFetchMore(parent) || isChanging_)
        return;
    try {
        std::vector<Row> rows = read(behindLastPage(), pageRows);
        if (rows.empty())
            appendPage({});
        else
            changeRows(rowCount(), static_cast<int>(rows.size()), [&] { appendPage(std::move(rows)); });
    } catch (const StoreError& error) {
        logger_.error(error.localizedDescription());
        isComplete_ = true;
    }
}

/// Inserts @p difference rows at row @p at (removes them if negative) by calling @p apply, with notifications.
void PagedListModel::changeRows(int at, int difference, const std::function<void()>& apply)
{
    isChanging_ = true;
    if (difference > 0)
        beginInsertRows({}, at, at + difference - 1);
    else
        beginRemoveRows({}, at, at - difference - 1);
    apply();
    if (difference > 0)
        endInsertRows();
    else
        endRemoveRows();
    isChanging_ = false;
}

void PagedListModel::appendPage(std::vector<Row> rows)
{
    isComplete_ = rows.size() < pageRows;
    Page page;
    // The first page extends to the newest end and the last one, when complete, to the oldest.
    page.range = {behindLastPage().newest, isComplete_ ? oldestEnd : rows.back().objectID};
    page.count = static_cast<int>(rows.size());
    page.rows = std::move(rows);
    page.lastUse = ++uses_;
    pages_.push_back(std::move(page));
    dropLeastUsed();
}

void PagedListModel::reload()
{
    isChanging_ = true;
    beginResetModel();
    pages_.clear();
    isComplete_ = false;
    try {
        appendPage(read(behindLastPage(), pageRows));
    } catch (const StoreError& error) {
        logger_.error(error.localizedDescription());
        isComplete_ = true;
    }
    endResetModel();
    isChanging_ = false;
}

int PagedListModel::rowsNewerThan(qint64 objectID, const Page& page) const
{
    return objectID == newestEnd ? 0 : count({page.range.newest, objectID + 1});
}

void PagedListModel::rowChanged(qint64 objectID)
{
    const auto page = std::ranges::find_if(pages_, [objectID](const Page& candidate) {
        return candidate.range.oldest <= objectID && objectID <= candidate.range.newest;
    });
    if (page == pages_.end())
        return;
    const auto number = static_cast<std::size_t>(page - pages_.begin());
    try {
        const int now = count(page->range);
        if (std::abs(now - page->count) > 1) {
            compare(number);
            return;
        }
        const int at = firstRowOf(number) + rowsNewerThan(objectID, *page);
        page->rows.reset();
        if (now != page->count)
            changeCount(number, now, at);
        else if (count({objectID, objectID}) == 1)
            Q_EMIT dataChanged(index(at), index(at));
    } catch (const StoreError& error) {
        logger_.error(error.localizedDescription());
    }
}

/// Changes a page's row count to @p now by inserting or removing rows at row @p at.
void PagedListModel::changeCount(std::size_t page, int now, int at)
{
    changeRows(at, now - pages_[page].count, [&] { pages_[page].count = now; });
    if (now >= 2 * pageRows)
        split(page);
}

/// Splits a page that has grown too large.
void PagedListModel::split(std::size_t page)
{
    const std::vector<Row> rows = read(pages_[page].range, pageRows);
    if (rows.size() < pageRows)
        return;
    Page older;
    older.range = {rows.back().objectID - 1, pages_[page].range.oldest};
    older.count = pages_[page].count - pageRows;
    Page& newer = pages_[page];
    newer.range.oldest = rows.back().objectID;
    newer.count = pageRows;
    newer.rows.reset();
    pages_.insert(pages_.begin() + static_cast<std::ptrdiff_t>(page) + 1, std::move(older));
}

void PagedListModel::anyRowChanged()
{
    try {
        for (std::size_t page = 0; page < pages_.size(); ++page)
            compare(page);
    } catch (const StoreError& error) {
        logger_.error(error.localizedDescription());
    }
}

/// Synchronises one page with the store.
void PagedListModel::compare(std::size_t page)
{
    const int now = count(pages_[page].range);
    if (now > pages_[page].count + mostRowsAdded) {
        reload();
        return;
    }
    if (pages_[page].rows) {
        replaceRows(page, read(pages_[page].range, now));
    } else if (now != pages_[page].count) {
        // These rows are not loaded, so it does not matter which of them changed.
        changeCount(page, now, firstRowOf(page) + std::min(now, pages_[page].count));
    }
}

void PagedListModel::replaceRows(std::size_t page, const std::vector<Row>& now)
{
    std::vector<Row> rows = pages_[page].rows.value();
    const int first = firstRowOf(page);
    // Slots may read values at once, so every step must leave the page consistent.
    const auto keep = [&] {
        pages_[page].count = static_cast<int>(rows.size());
        pages_[page].rows = rows;
    };
    for (std::size_t i = 0; i < now.size() || i < rows.size();) {
        const int row = first + static_cast<int>(i);
        if (i == now.size() || (i < rows.size() && rows[i].objectID > now[i].objectID)) {
            changeRows(row, -1, [&] {
                rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(i));
                keep();
            });
            continue;
        }
        if (i == rows.size() || now[i].objectID > rows[i].objectID) {
            changeRows(row, 1, [&] {
                rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(i), now[i]);
                keep();
            });
        } else if (rows[i].values != now[i].values) {
            rows[i] = now[i];
            keep();
            Q_EMIT dataChanged(index(row), index(row));
        }
        ++i;
    }
    if (pages_[page].count >= 2 * pageRows)
        split(page);
}

} // namespace vantro
