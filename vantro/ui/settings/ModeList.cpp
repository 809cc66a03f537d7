#include "vantro/ui/settings/ModeList.h"

#include <algorithm>
#include <utility>

namespace vantro {

ModeList::ModeList(const PromptSettings& prompts, std::function<bool(ProcessingMode)> isReady,
                   std::function<QString(ProcessingMode)> note)
    : prompts_(prompts)
    , isReady_(std::move(isReady))
    , note_(std::move(note))
    , modes_(prompts.modes())
{
}

int ModeList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(modes_.size());
}

QHash<int, QByteArray> ModeList::roleNames() const
{
    return {{Name, "name"}, {Note, "note"}, {IsReady, "isReady"}, {IsAdded, "isAdded"}, {Digit, "digit"}};
}

QVariant ModeList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ProcessingMode mode = modes_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Name:
        return prompts_.displayName(mode);
    case Note:
        return note_(mode);
    case IsReady:
        return isReady_(mode);
    case IsAdded:
        return isAddedMode(mode);
    case Digit:
        return digitOf(index.row());
    default:
        return {};
    }
}

int ModeList::digitOf(int row) const
{
    const auto end = modes_.begin() + row + 1;
    return isReady_(*(end - 1)) ? static_cast<int>(std::count_if(modes_.begin(), end, isReady_)) : 0;
}

void ModeList::refresh()
{
    const auto wanted = prompts_.modes();
    removeMissing(wanted);
    for (int row = 0; row < static_cast<int>(wanted.size()); ++row)
        moveTo(wanted[static_cast<std::size_t>(row)], row);
    Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

void ModeList::removeMissing(const std::vector<ProcessingMode>& wanted)
{
    for (int row = rowCount() - 1; row >= 0; --row) {
        if (std::ranges::find(wanted, modes_[static_cast<std::size_t>(row)]) != wanted.end())
            continue;
        beginRemoveRows({}, row, row);
        modes_.erase(modes_.begin() + row);
        endRemoveRows();
    }
}

/// Everything before @p row is in its place.
void ModeList::moveTo(ProcessingMode mode, int row)
{
    const auto from = static_cast<int>(std::ranges::find(modes_, mode) - modes_.begin());
    if (from == rowCount()) {
        beginInsertRows({}, row, row);
        modes_.insert(modes_.begin() + row, mode);
        endInsertRows();
    } else if (from != row) {
        beginMoveRows({}, from, from, {}, row);
        std::rotate(modes_.begin() + row, modes_.begin() + from, modes_.begin() + from + 1);
        endMoveRows();
    }
}

} // namespace vantro
