#pragma once

#include "vantro/store/CoreDataStack.h"
#include "vantro/store/PagedListModel.h"

namespace vantro {

/// The history window's list of dictations: filtered, newest first; follows all changes of the store. Main thread.
class HistoryListModel final : public PagedListModel
{
    Q_OBJECT
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY filterChanged)
    Q_PROPERTY(QString mode READ mode WRITE setMode NOTIFY filterChanged)
    Q_PROPERTY(QDateTime since READ since WRITE setSince NOTIFY filterChanged)
public:
    enum Role {
        Identifier = Qt::UserRole, ///< QUuid, for CoreDataStack::transcription()
        CreatedAt,                 ///< QDateTime in local time
        Mode,                      ///< raw value
        FirstLine,                 ///< of the formatted text if available; in a search, the line around the first hit
        IsFormatted,               ///< bool
        Day,                       ///< the local date, "2026-03-01"; empty if it is unknown
    };

    /// @p store must be loaded and must outlive the model.
    explicit HistoryListModel(CoreDataStack& store, QObject* parent = nullptr);

    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    [[nodiscard]] QString searchText() const { return filter_.search; }
    void setSearchText(const QString& text);
    /// A mode's raw value; empty for all.
    [[nodiscard]] QString mode() const;
    void setMode(const QString& mode);
    /// Invalid for all.
    [[nodiscard]] QDateTime since() const { return filter_.since; }
    void setSince(const QDateTime& since);
    [[nodiscard]] bool isUnrewritten() const { return filter_.isUnrewritten; }
    void setUnrewritten(bool isUnrewritten);
    [[nodiscard]] const HistoryFilter& filter() const { return filter_; }

Q_SIGNALS:
    void filterChanged();

protected:
    [[nodiscard]] std::vector<Row> read(FetchRange range, int limit) const override;
    [[nodiscard]] int count(FetchRange range) const override;

private:
    void setFilter(const HistoryFilter& filter);

    CoreDataStack& store_;
    HistoryFilter filter_;
};

} // namespace vantro
