#pragma once

#include <QAbstractListModel>
#include <QVariantMap>

#include <vector>

namespace vantro {

/// The rows of a list on a page. A row that stays when others come and go keeps its items, and with them the keyboard
/// and what is being typed. Main thread.
class PageRows final : public QAbstractListModel
{
    Q_OBJECT
public:
    /// @p members: of each row; the first tells the rows apart.
    explicit PageRows(QStringList members);

    /// Makes @p rows, which have all members, those of the list.
    void show(std::vector<QVariantMap> rows);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    [[nodiscard]] bool isSame(const QVariantMap& a, const QVariantMap& b) const;
    void replace(std::size_t begin, std::size_t end, const std::vector<QVariantMap>& rows, std::size_t rowsEnd);

    QStringList members_;
    std::vector<QVariantMap> rows_;
};

} // namespace vantro
