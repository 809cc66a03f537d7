#include "vantro/ui/settings/PageRows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantro {

PageRows::PageRows(QStringList members) : members_(std::move(members)) {}

bool PageRows::isSame(const QVariantMap& a, const QVariantMap& b) const
{
    return a.value(members_.constFirst()) == b.value(members_.constFirst());
}

void PageRows::show(std::vector<QVariantMap> rows)
{
    const auto same = [this](const QVariantMap& a, const QVariantMap& b) {
        return isSame(a, b);
    };
    const auto [oldMiddle, newMiddle] = std::ranges::mismatch(rows_, rows, same);
    const auto begin = static_cast<std::size_t>(oldMiddle - rows_.begin());
    std::size_t oldEnd = rows_.size();
    std::size_t newEnd = rows.size();
    while (oldEnd > begin && newEnd > begin && isSame(rows_[oldEnd - 1], rows[newEnd - 1])) {
        --oldEnd;
        --newEnd;
    }
    replace(begin, oldEnd, rows, newEnd);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows_[i] == rows[i])
            continue;
        rows_[i] = std::move(rows[i]);
        Q_EMIT dataChanged(index(static_cast<int>(i)), index(static_cast<int>(i)));
    }
}

/// Puts the rows from @p begin to @p rowsEnd of @p rows in the place of those up to @p end.
void PageRows::replace(std::size_t begin, std::size_t end, const std::vector<QVariantMap>& rows, std::size_t rowsEnd)
{
    const auto first = static_cast<std::ptrdiff_t>(begin);
    if (end > begin) {
        beginRemoveRows({}, static_cast<int>(begin), static_cast<int>(end) - 1);
        rows_.erase(rows_.begin() + first, rows_.begin() + static_cast<std::ptrdiff_t>(end));
        endRemoveRows();
    }
    if (rowsEnd > begin) {
        beginInsertRows({}, static_cast<int>(begin), static_cast<int>(rowsEnd) - 1);
        rows_.insert(rows_.begin() + first, rows.begin() + first, rows.begin() + static_cast<std::ptrdiff_t>(rowsEnd));
        endInsertRows();
    }
}

int PageRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant PageRows::data(const QModelIndex& index, int role) const
{
    const QString member = members_.value(role - Qt::UserRole);
    return index.isValid() && !member.isEmpty() ? rows_[static_cast<std::size_t>(index.row())].value(member)
                                                : QVariant();
}

QHash<int, QByteArray> PageRows::roleNames() const
{
    QHash<int, QByteArray> names;
    for (qsizetype i = 0; i < members_.size(); ++i)
        names.insert(static_cast<int>(Qt::UserRole + i), members_[i].toUtf8());
    return names;
}

} // namespace vantro
