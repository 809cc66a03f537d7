#pragma once

#include "base/Logger.h"
#include "vantro/store/Entities.h"

#include <QAbstractListModel>
#include <QVariantList>

#include <functional>
#include <optional>
#include <vector>

namespace vantro {

/// Stored rows, newest first, for a view. Rows come a page at a time as the view asks for more, and only the pages that
/// were looked at last are kept, whatever the length: one that is scrolled back to is read again. Rows that are added,
/// changed or deleted appear, change and go in their places. A failure to read is logged and ends the list there.
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

    /// Rows whose contents are in memory.
    [[nodiscard]] int keptRows() const;

protected:
    struct Row
    {
        qint64 objectID = 0;
        QVariantList values; ///< for Qt::UserRole and the roles after it
    };

    explicit PagedListModel(QObject* parent);

    /// The newest rows of @p range, newest first. May throw StoreError, as may count().
    [[nodiscard]] virtual std::vector<Row> read(FetchRange range, int limit) const = 0;
    [[nodiscard]] virtual int count(FetchRange range) const = 0;

    /// Begins anew, with the first page.
    void reload();
    /// The row may be new, changed, gone, or none of this list.
    void rowChanged(qint64 objectID);
    /// Any rows may have changed.
    void anyRowChanged();

private:
    /// A stretch of the order without gaps to its neighbours; the first reaches to the newest end.
    struct Page
    {
        FetchRange range;
        int count = 0;
        std::optional<std::vector<Row>> rows; ///< while it is kept
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
    bool isChanging_ = false; ///< rows are just coming or going
};

} // namespace vantro
