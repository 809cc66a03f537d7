#pragma once

#include "base/Logger.h"
#include "vantro/store/Entities.h"

#include <QAbstractListModel>
#include <QVariantList>

#include <functional>
#include <optional>
#include <vector>

namespace vantro {

/// A lazily loaded list of stored rows, newest first. Pages are fetched as the view asks for more, and only the most
/// recently used ones are kept in memory; others are read again on demand. Changes are reported per row. A read failure
/// is logged and ends the list there.
class PagedListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    static constexpr int pageRows = 50;
    static constexpr int keptPages = 8;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

    /// The row of a key, or -1 while it is not in the list or the list has not been read that far.
    [[nodiscard]] int rowOf(qint64 objectID) const;
    /// The number of rows in memory.
    [[nodiscard]] int keptRows() const;

protected:
    struct Row
    {
        qint64 objectID = 0;
        QVariantList values; ///< for Qt::UserRole and the following roles
    };

    explicit PagedListModel(QObject* parent);

    /// The newest rows of @p range, newest first. May throw StoreError, as may count().
    [[nodiscard]] virtual std::vector<Row> read(FetchRange range, int limit) const = 0;
    [[nodiscard]] virtual int count(FetchRange range) const = 0;

    /// Resets the list to the first page.
    void reload();
    /// Call when a row was inserted, updated or deleted; it need not be in this list.
    void rowChanged(qint64 objectID);
    /// Call when any rows may have changed.
    void anyRowChanged();

private:
    /// A range adjacent to its neighbours'; the first one extends to the newest end.
    struct Page
    {
        FetchRange range;
        int count = 0;
        std::optional<std::vector<Row>> rows; ///< while it is in memory
        quint64 lastUse = 0;
    };

    void changeRows(int at, int difference, const std::function<void()>& apply);
    void appendPage(std::vector<Row> rows);
    void compare(std::size_t page);
    void replaceRows(std::size_t page, const std::vector<Row>& now);
    void changeCount(std::size_t page, int now, int at);
    void split(std::size_t page);
    [[nodiscard]] const std::vector<Row>& rowsOf(Page& page) const;
    void dropLeastUsed() const;
    [[nodiscard]] int firstRowOf(std::size_t page) const;
    [[nodiscard]] int rowsNewerThan(qint64 objectID, const Page& page) const;
    [[nodiscard]] FetchRange behindLastPage() const;

    Logger logger_{"PagedListModel"};
    mutable std::vector<Page> pages_;
    mutable quint64 uses_ = 0;
    bool isComplete_ = false;
    bool isChanging_ = false; ///< during row insertion, removal or reset
};

} // namespace vantro
