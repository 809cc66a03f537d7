#pragma once

#include "vantro/store/CoreDataStack.h"
#include "vantro/store/PagedListModel.h"

namespace vantro {

/// The days with notes, newest first; follows all changes of the store. Main thread.
class DailyNoteListModel final : public PagedListModel
{
    Q_OBJECT
public:
    enum Role {
        Identifier = Qt::UserRole, ///< QUuid
        CreatedAt,                 ///< QDateTime in local time, any time of the day
        Summary,                   ///< empty until there is one
        NoteCount,                 ///< int
    };

    /// @p store must be loaded and must outlive the model.
    explicit DailyNoteListModel(CoreDataStack& store, QObject* parent = nullptr);

    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

protected:
    [[nodiscard]] std::vector<Row> read(FetchRange range, int limit) const override;
    [[nodiscard]] int count(FetchRange range) const override;

private:
    CoreDataStack& store_;
};

} // namespace vantro
