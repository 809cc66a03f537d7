#include "vantro/ui/settings/ModelListModel.h"

#include "base/Error.h"

#include <QPointer>

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
    case ProgressRole:
        return parts_.stateOf(*model) == Downloading ? parts_.progress() : 0.0F;
    case StatusRole:
        return parts_.statusText(*model);
    default:
        return {};
    }
}

QHash<int, QByteArray> ModelListModel::roleNames() const
{
    return {{NameRole, "name"},         {SizeRole, "size"},           {SpeedRole, "speed"},
            {AccuracyRole, "accuracy"}, {DescriptionRole, "about"},   {LanguagesRole, "languages"},
            {StateRole, "modelState"},  {SelectedRole, "isSelected"}, {ProgressRole, "progress"},
            {StatusRole, "statusText"}};
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

void ModelListModel::cancel(int row)
{
    if (const auto* model = modelAt(row))
        parts_.cancel(*model);
}

void ModelListModel::remove(int row)
{
    const auto* model = modelAt(row);
    if (model == nullptr)
        return;
    const QPointer<ModelListModel> self(this); // the window may be closed before the answer
    parts_.confirmRemoval(*model, [self, model] {
        if (self)
            self->removeNow(*model);
    });
}

void ModelListModel::removeNow(const TranscriptionModel& model)
{
    problem_.clear();
    try {
        parts_.remove(model);
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
