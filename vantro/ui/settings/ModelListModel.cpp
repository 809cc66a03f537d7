#include "vantro/ui/settings/ModelListModel.h"

#include "base/Error.h"

#include <utility>

namespace vantro {

ModelListModel::ModelListModel(Parts parts) : parts_(std::move(parts)) {}

int ModelListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(parts_.models.size());
}

const TranscriptionModel* ModelListModel::modelAt(int row) const
{
    return row >= 0 && row < rowCount() ? &parts_.models[static_cast<std::size_t>(row)] : nullptr;
}

QVariant ModelListModel::data(const QModelIndex& index, int role) const
{
    const TranscriptionModel* const model = modelAt(index.row());
    if (model == nullptr)
        return {};
    switch (role) {
    case NameRole:
        return model->name;
    case SizeRole:
        return model->size;
    case SpeedRole:
        return model->speed;
    case AccuracyRole:
        return model->accuracy;
    case DescriptionRole:
        return model->description;
    case LanguagesRole:
        return model->supportedLanguages == SupportedLanguages::english ? tr("English") : tr("Many languages");
    case StateRole:
        return parts_.stateOf(*model);
    case SelectedRole:
        return model->name == parts_.selectedName();
    default:
        return {};
    }
}

QHash<int, QByteArray> ModelListModel::roleNames() const
{
    return {{NameRole, "name"},         {SizeRole, "size"},          {SpeedRole, "speed"},
            {AccuracyRole, "accuracy"}, {DescriptionRole, "about"},  {LanguagesRole, "languages"},
            {StateRole, "modelState"},  {SelectedRole, "isSelected"}};
}

void ModelListModel::select(int row)
{
    if (const auto* model = modelAt(row))
        parts_.select(*model);
    refresh();
}

void ModelListModel::download(int row)
{
    if (const auto* model = modelAt(row))
        parts_.download(*model);
}

void ModelListModel::remove(int row)
{
    problem_.clear();
    try {
        if (const auto* model = modelAt(row))
            parts_.remove(*model);
    } catch (const Error& error) {
        problem_ = error.localizedDescription();
    }
    Q_EMIT problemChanged();
    refresh();
}

void ModelListModel::refresh()
{
    Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

} // namespace vantro
