#include "vantro/ui/settings/ModelListModel.h"

#include "base/Error.h"

#include <QLocale>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantro {

namespace {

QString waitText(const TranscriptionModel& model, const Machine& machine)
{
    if (model.isLanguageModel()) {
        const QString memory = ModelListModel::tr("%1 GB of memory").arg(QLocale().toString(model.ramUsage, 'f', 1));
        return model.license.isEmpty() ? memory : memory + QStringLiteral("  \u00B7  ") + model.license;
    }
    const auto wait = expectedWait(model, machine);
    return wait.count() < 1 ? ModelListModel::tr("10 s of speech in less than 1 s")
                            : ModelListModel::tr("10 s of speech in about %1 s").arg(std::lround(wait.count()));
}

} // namespace

ModelListModel::ModelListModel(Parts parts) : parts_(std::move(parts))
{
    reload();
}

void ModelListModel::reload()
{
    beginResetModel();
    order_.clear();
    for (const TranscriptionModel& model : parts_.models)
        order_.push_back(&model);
    endResetModel();
    sortAgain();
}

void ModelListModel::sortAgain()
{
    beginResetModel();
    const QString used = parts_.selectedName();
    std::ranges::sort(order_, [&used](const auto* one, const auto* other) {
        const bool isOneUsed = one->name == used;
        return isOneUsed != (other->name == used) ? isOneUsed : one < other; // else as in the catalogue
    });
    endResetModel();
    Q_EMIT diskUseChanged();
}

QString ModelListModel::diskUse() const
{
    return tr("Downloaded models take up %1.").arg(QLocale().formattedDataSize(parts_.bytesUsed()));
}

void ModelListModel::clearCache()
{
    const QPointer<ModelListModel> self(this);
    parts_.confirmClearing([self] {
        if (!self)
            return;
        self->parts_.clearCache();
        self->refresh();
    });
}

int ModelListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(order_.size());
}

const TranscriptionModel* ModelListModel::modelAt(int row) const
{
    return row >= 0 && row < rowCount() ? order_[static_cast<std::size_t>(row)] : nullptr;
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
    case RecommendedRole:
        return isRecommended(*model);
    case WaitRole:
        return waitText(*model, parts_.machine);
    case StatusRole:
        return parts_.statusText(*model);
    default:
        return {};
    }
}

bool ModelListModel::isRecommended(const TranscriptionModel& model) const
{
    if (model.isLanguageModel())
        return recommendedRewriter(parts_.models, parts_.machine) == &model;
    return &recommended(parts_.models, parts_.machine, parts_.language(),
                        [this](const TranscriptionModel& each) { return parts_.stateOf(each) == Ready; }) == &model;
}

QHash<int, QByteArray> ModelListModel::roleNames() const
{
    return {{NameRole, "name"},
            {SizeRole, "size"},
            {SpeedRole, "speed"},
            {AccuracyRole, "accuracy"},
            {DescriptionRole, "about"},
            {LanguagesRole, "languages"},
            {StateRole, "modelState"},
            {SelectedRole, "isSelected"},
            {ProgressRole, "progress"},
            {StatusRole, "statusText"},
            {RecommendedRole, "isRecommended"},
            {WaitRole, "wait"}};
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
    Q_EMIT diskUseChanged();
}

} // namespace vantro
